#define older_split_1_DAG_NAME "older_split_1"
#define older_split_1_image_size 5
#define older_split_1_image_start 8192
