#define b_DAG_NAME "b"
#define b_image_size 5
