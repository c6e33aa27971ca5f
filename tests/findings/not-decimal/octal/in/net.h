#define net_DAG_NAME "net"
#define net_image_size 5
/* net HMB_input p0 */
#define net_p0_W 010
/* net HMB_input p1 */
#define net_p1_W +010
/* net HMB_input p2 */
#define net_p2_W 08
/* net HMB_input p3 */
#define net_p3_expoffset -010
/* net HMB_input p4 */
#define net_p4_W 007
