#define net_DAG_NAME "net"
#define net_image_size 5
/* net HMB_input data */
/* rows */
#define net_data_H 49
/* net HMB_output data */
