#define net_DAG_NAME "net"
#define net_image_size 5
/* net HMB_input data */
#define net_data_W 4
#define net_data_W
#define net_data_H ,;
#define net_data_qubrix_demangled_name "a"
#define net_data_qubrix_demangled_name ""
/* net HMB_input mel */
#define net_mel_qubrix_demangled_name ""
