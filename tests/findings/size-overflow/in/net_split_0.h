#define net0_DAG_NAME "net0"
#define net0_image_size 2147483647
