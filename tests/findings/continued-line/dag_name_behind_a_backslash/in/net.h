#define x 1 \
 net_DAG_NAME net
#define net_image_size 5
