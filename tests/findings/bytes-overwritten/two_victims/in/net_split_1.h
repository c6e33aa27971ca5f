#define net_split_1_DAG_NAME "net_split_1"
#define net_split_1_image_size 5
#define net_split_1_image_start 8192
#define net_split_1_dagbin_start 8192
/* net_split_1 HMB_input s1 */
#define net_split_1_s1_W 16
#define net_split_1_s1_H 1
#define net_split_1_s1_D 1
#define net_split_1_s1_P 1
#define net_split_1_s1_datasize 8
#define net_split_1_s1_dbase_byte_offset 16
#define net_split_1_s1_dram_size_num_bytes 16
/* net_split_1 HMB_output s3 */
#define net_split_1_s3_W 16
#define net_split_1_s3_H 1
#define net_split_1_s3_D 1
#define net_split_1_s3_P 1
#define net_split_1_s3_datasize 8
#define net_split_1_s3_dbase_byte_offset 24
#define net_split_1_s3_dram_size_num_bytes 16
