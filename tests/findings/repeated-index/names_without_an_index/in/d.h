#define d_DAG_NAME "d"
#define d_image_size 5
#define d_image_start 16384
