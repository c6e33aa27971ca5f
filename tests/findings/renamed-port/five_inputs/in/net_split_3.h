#define net_split_3_DAG_NAME "net_split_3"
#define net_split_3_image_size 5
#define net_split_3_image_start 16384
#define net_split_3_dagbin_start 16384
/* net_split_3 HMB_input s1 */
#define net_split_3_s1_W 16
#define net_split_3_s1_H 1
#define net_split_3_s1_D 1
#define net_split_3_s1_P 1
#define net_split_3_s1_datasize 8
#define net_split_3_s1_dbase_byte_offset 16
#define net_split_3_s1_dram_size_num_bytes 16
/* net_split_3 HMB_output o2 */
#define net_split_3_o2_W 16
#define net_split_3_o2_H 1
#define net_split_3_o2_D 1
#define net_split_3_o2_P 1
#define net_split_3_o2_datasize 8
#define net_split_3_o2_dbase_byte_offset 64
#define net_split_3_o2_dram_size_num_bytes 16
