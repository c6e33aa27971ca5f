#define c_DAG_NAME "c"
#define c_image_size 5
#define c_image_start 12288
