#define net_DAG_NAME "net"
#define net_image_size 5
/* net HMB_input p0 */
#define net_p0_W 12abc
/* net HMB_input p1 */
#define net_p1_W 0a
/* net HMB_input p2 */
#define net_p2_expoffset -2.5
/* net HMB_input p3 */
#define net_p3_sign 300u
