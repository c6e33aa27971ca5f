#define split_1_DAG_NAME "split_1"
#define split_1_image_size 5
#define split_1_image_start 8192
