#define net_split_1_DAG_NAME "net_split_1"
#define net_split_1_image_size 5
#define net_split_1_image_start 8192
