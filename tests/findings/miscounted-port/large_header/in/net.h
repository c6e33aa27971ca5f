/* net HMB_input early */
#define net_DAG_NAME "net"
#define net_image_size 5
/* net HMB_output late */
#define net_late_W 0x10
