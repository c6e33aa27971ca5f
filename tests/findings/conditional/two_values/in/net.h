#define net_DAG_NAME "net"
#define net_image_size 5
/* net HMB_input data */
#if FAST // _data_
#define net_data_W 0x10
#else // _data_
#define net_data_W 40
#endif
