#define net_DAG_NAME "net"
#define net_image_size 5
#undef net_image_size
/* #define net_image_size 5 */
