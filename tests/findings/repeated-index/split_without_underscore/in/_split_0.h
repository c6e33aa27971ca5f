#define split_0_DAG_NAME "split_0"
#define split_0_image_size 5
#define split_0_image_start 4096
