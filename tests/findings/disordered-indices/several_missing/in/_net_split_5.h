#define net_split_5_DAG_NAME "net_split_5"
#define net_split_5_image_size 5
#define net_split_5_image_start 8192
