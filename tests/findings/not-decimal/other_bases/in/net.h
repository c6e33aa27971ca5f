#define net_DAG_NAME "net"
#define net_image_size 5
/* net HMB_input p0 */
#define net_p0_W 0x10
/* net HMB_input p1 */
#define net_p1_W 0X10
/* net HMB_input p2 */
#define net_p2_W 0b11
/* net HMB_input p3 */
#define net_p3_W 0B11
/* net HMB_input p4 */
#define net_p4_W -0x10
/* net HMB_input p5 */
#define net_p5_W +0x10
/* net HMB_input p6 */
#define net_p6_W (3)
/* net HMB_input p7 */
#define net_p7_W rows
/* net HMB_input p8 */
#define net_p8_W 0x
/* net HMB_input p9 */
#define net_p9_W 0
/* net HMB_input p10 */
#define net_p10_W 0x0
