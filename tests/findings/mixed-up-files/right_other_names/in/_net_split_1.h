#define ears_DAG_NAME "ears"
#define ears_image_size 5
#define ears_image_start 8192
