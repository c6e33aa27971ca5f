#define net_split_1_DAG_NAME "net_split_1"
#define net_split_1_image_size 5
#define net_split_1_image_start 8192
#define net_split_1_dagbin_start 8192
/* net_split_1 HMB_input s2 */
#define net_split_1_s2_W 16
#define net_split_1_s2_H 1
#define net_split_1_s2_D 1
#define net_split_1_s2_P 1
#define net_split_1_s2_datasize 8
#define net_split_1_s2_dbase_byte_offset 32
#define net_split_1_s2_dram_size_num_bytes 16
/* net_split_1 HMB_output s3 */
#define net_split_1_s3_W 16
#define net_split_1_s3_H 1
#define net_split_1_s3_D 1
#define net_split_1_s3_P 1
#define net_split_1_s3_datasize 8
#define net_split_1_s3_dbase_byte_offset 48
#define net_split_1_s3_dram_size_num_bytes 16
