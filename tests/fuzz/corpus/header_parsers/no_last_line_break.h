#define n_DAG_NAME n
HMB_input a
_a_W 1
HMB_output b
_b_hflip 1 b_hflip_ 2
$v
v_bsize 1

 
SMB_input s
_s_vbase_byte_offset 1