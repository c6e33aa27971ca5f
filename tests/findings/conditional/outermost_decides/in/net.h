#define net_DAG_NAME "net"
#define net_image_size 5
/* net HMB_input data */
#if 0 // _data_
#if 1 // _data_
#define net_data_W 40
#endif // _data_
#endif
