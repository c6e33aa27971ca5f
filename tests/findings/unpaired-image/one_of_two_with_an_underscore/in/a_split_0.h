#define a_DAG_NAME "a"
#define a_image_size 5
