#define net_DAG_NAME "net"
#define net_image_size 5
#define other 1
