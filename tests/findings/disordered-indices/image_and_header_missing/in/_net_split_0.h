#define net_split_0_DAG_NAME "net_split_0"
#define net_split_0_image_size 5
#define net_split_0_image_start 4096
