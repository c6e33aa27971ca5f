#define net_DAG_NAME "net"
#define net_image_size 5
/* net HMB_input data */
#define net_data_W 4294967301
#define net_data_sign 300
#define net_data_expoffset 128
#define net_data_hflip 2
#define net_data_H -1
#define net_data_D 18446744073709551621
