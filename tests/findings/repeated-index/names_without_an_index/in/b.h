#define b_DAG_NAME "b"
#define b_image_size 5
#define b_image_start 8192
