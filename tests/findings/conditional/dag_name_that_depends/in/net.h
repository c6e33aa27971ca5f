#ifdef __linux__
#define net_DAG_NAME net
#endif
#define net_image_size 5
