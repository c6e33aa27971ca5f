#define net_split_5_DAG_NAME "net_split_5"
#define net_split_5_image_size 5
#define net_split_5_image_start 24576
#define net_split_5_dagbin_start 24576
/* net_split_5 HMB_input s1 */
#define net_split_5_s1_W 16
#define net_split_5_s1_H 1
#define net_split_5_s1_D 1
#define net_split_5_s1_P 1
#define net_split_5_s1_datasize 8
#define net_split_5_s1_dbase_byte_offset 16
#define net_split_5_s1_dram_size_num_bytes 16
/* net_split_5 HMB_output o4 */
#define net_split_5_o4_W 16
#define net_split_5_o4_H 1
#define net_split_5_o4_D 1
#define net_split_5_o4_P 1
#define net_split_5_o4_datasize 8
#define net_split_5_o4_dbase_byte_offset 96
#define net_split_5_o4_dram_size_num_bytes 16
