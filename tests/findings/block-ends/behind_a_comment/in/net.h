#define net_DAG_NAME "net"
#define net_image_size 5
/* net HMB_input data */
#define net_data_W 40
/* rows */
#define net_data_H 49
