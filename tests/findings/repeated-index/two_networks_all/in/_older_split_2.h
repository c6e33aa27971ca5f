#define older_split_2_DAG_NAME "older_split_2"
#define older_split_2_image_size 5
#define older_split_2_image_start 12288
