#define net_DAG_NAME "net"
#define net_image_size 5
/* net HMB_input data */
#define net_data_W 0x1000
#define net_data_H 010
#define net_data_D (3)
#define net_data_P ROWS
