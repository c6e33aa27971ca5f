#define net_split_3_DAG_NAME "net_split_3"
#define net_split_3_image_size 8
#define net_split_3_image_start 16384
