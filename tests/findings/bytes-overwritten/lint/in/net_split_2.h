#define net_split_2_DAG_NAME "net_split_2"
#define net_split_2_image_size 5
#define net_split_2_image_start 12288
#define net_split_2_dagbin_start 12288
/* net_split_2 HMB_input s1 */
#define net_split_2_s1_W 16
#define net_split_2_s1_H 1
#define net_split_2_s1_D 1
#define net_split_2_s1_P 1
#define net_split_2_s1_datasize 8
#define net_split_2_s1_dbase_byte_offset 16
#define net_split_2_s1_dram_size_num_bytes 16
/* net_split_2 HMB_input s2 */
#define net_split_2_s2_W 16
#define net_split_2_s2_H 1
#define net_split_2_s2_D 1
#define net_split_2_s2_P 1
#define net_split_2_s2_datasize 8
#define net_split_2_s2_dbase_byte_offset 24
#define net_split_2_s2_dram_size_num_bytes 16
/* net_split_2 HMB_output out */
#define net_split_2_out_W 16
#define net_split_2_out_H 1
#define net_split_2_out_D 1
#define net_split_2_out_P 1
#define net_split_2_out_datasize 8
#define net_split_2_out_dbase_byte_offset 48
#define net_split_2_out_dram_size_num_bytes 16
