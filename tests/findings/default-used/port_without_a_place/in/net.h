#define net_DAG_NAME "net"
#define net_image_size 5
#define net_image_start 4096
#define net_dagbin_start 4097
#define net_use_ping_pong_vmem 1
/* net HMB_input a */
#define net_a_W 3
