#define net_DAG_NAME "net"
#define net_image_size 5
/* net HMB_input p0 */
#define net_p0_W 0
/* net HMB_input p1 */
#define net_p1_W 7
/* net HMB_input p2 */
#define net_p2_W 40
/* net HMB_input p3 */
#define net_p3_W 000
/* net HMB_input p4 */
#define net_p4_W 4294967295
/* net HMB_input p5 */
#define net_p5_W 40u
/* net HMB_input p6 */
#define net_p6_W 40UL
/* net HMB_input p7 */
#define net_p7_W 40ll
/* net HMB_input p8 */
#define net_p8_sign 0
/* net HMB_input p9 */
#define net_p9_sign 9
/* net HMB_input p10 */
#define net_p10_sign 99
/* net HMB_input p11 */
#define net_p11_sign 100
/* net HMB_input p12 */
#define net_p12_sign 255
/* net HMB_input p13 */
#define net_p13_expoffset 0
/* net HMB_input p14 */
#define net_p14_expoffset 99
/* net HMB_input p15 */
#define net_p15_expoffset 127
/* net HMB_input p16 */
#define net_p16_expoffset -128
/* net HMB_input p17 */
#define net_p17_expoffset -1
/* net HMB_input p18 */
#define net_p18_expoffset +1
/* net HMB_input p19 */
#define net_p19_hflip 0
/* net HMB_input p20 */
#define net_p20_hflip 1
