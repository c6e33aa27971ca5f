#if 0
#define net_DAG_NAME net
#endif
#define net_image_size 5
