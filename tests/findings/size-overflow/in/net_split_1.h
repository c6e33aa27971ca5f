#define net1_DAG_NAME "net1"
#define net1_image_size 2147483647
