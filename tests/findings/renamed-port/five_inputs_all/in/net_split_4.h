#define net_split_4_DAG_NAME "net_split_4"
#define net_split_4_image_size 5
#define net_split_4_image_start 20480
#define net_split_4_dagbin_start 20480
/* net_split_4 HMB_input s1 */
#define net_split_4_s1_W 16
#define net_split_4_s1_H 1
#define net_split_4_s1_D 1
#define net_split_4_s1_P 1
#define net_split_4_s1_datasize 8
#define net_split_4_s1_dbase_byte_offset 16
#define net_split_4_s1_dram_size_num_bytes 16
/* net_split_4 HMB_output o3 */
#define net_split_4_o3_W 16
#define net_split_4_o3_H 1
#define net_split_4_o3_D 1
#define net_split_4_o3_P 1
#define net_split_4_o3_datasize 8
#define net_split_4_o3_dbase_byte_offset 80
#define net_split_4_o3_dram_size_num_bytes 16
