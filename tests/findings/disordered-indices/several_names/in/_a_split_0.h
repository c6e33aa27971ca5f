#define a_split_0_DAG_NAME "a_split_0"
#define a_split_0_image_size 5
#define a_split_0_image_start 4096
