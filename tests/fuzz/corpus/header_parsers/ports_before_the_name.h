HMB_input a
HMB_output a HMB_input
#define x_DAG_NAME
#define x_DAG_NAME x
$ $ SMB_input $a
SMB_input _
__vbase_byte_offset 9
