#define net2_DAG_NAME "net2"
#define net2_image_size 2147483647
