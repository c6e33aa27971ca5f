#define older_split_0_DAG_NAME "older_split_0"
#define older_split_0_image_size 5
#define older_split_0_image_start 4096
