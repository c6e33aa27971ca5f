#define b_split_2_DAG_NAME "b_split_2"
#define b_split_2_image_size 5
#define b_split_2_image_start 8192
