#define net_split_01_DAG_NAME "net_split_01"
#define net_split_01_image_size 5
#define net_split_01_image_start 8192
