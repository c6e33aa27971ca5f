#define net_split_00_DAG_NAME "net_split_00"
#define net_split_00_image_size 5
#define net_split_00_image_start 4096
