#define net_split_2_DAG_NAME "net_split_2"
#define net_split_2_image_size 5
#define net_split_2_image_start 12288
