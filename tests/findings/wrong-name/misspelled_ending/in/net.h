#define net_DAG_NAME "net"
#define net_imag_size 5
#define net_image_size 5
/* net HMB_input data */
#define net_data_datsize 16
#define net_data_sine 1
