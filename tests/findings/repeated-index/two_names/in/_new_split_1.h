#define new_split_1_DAG_NAME "new_split_1"
#define new_split_1_image_size 5
#define new_split_1_image_start 12288
