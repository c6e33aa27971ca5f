#define net_split_1_DAG_NAME "net_split_1"
#define net_split_1_image_size 5
#define net_split_1_image_start 8192
/* net_split_1 HMB_input a */
#define net_split_1_a_W 3
/* net_split_1 HMB_output b */
#define net_split_1_b_W 4
