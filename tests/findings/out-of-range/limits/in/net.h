#define net_DAG_NAME "net"
#define net_image_size 5
/* net HMB_input p0 */
#define net_p0_W 4294967296
/* net HMB_input p1 */
#define net_p1_W -1
/* net HMB_input p2 */
#define net_p2_datasize 256
/* net HMB_input p3 */
#define net_p3_expoffset -129
/* net HMB_input p4 */
#define net_p4_vflip 3
/* net HMB_input p5 */
#define net_p5_is_bitvector 3
/* net HMB_input p6 */
#define net_p6_W 18446744073709551616
/* net HMB_input p7 */
#define net_p7_W 07777777777777777777777777
