#define net_DAG_NAME "net"
#define net_image_size 5
/* net SMB_input window */
#define net_windw_vbase_byte_offset 4
#define net_window_vbase_byte_ofset 4
