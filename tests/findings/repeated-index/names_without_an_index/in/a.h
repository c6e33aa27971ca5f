#define a_DAG_NAME "a"
#define a_image_size 5
#define a_image_start 4096
