#define net_split_0_DAG_NAME "net_split_0"
#define net_split_0_image_size 5
#define net_split_0_image_start 4096
#define net_split_0_dagbin_start 4096
/* net_split_0 HMB_input s3 */
#define net_split_0_s3_W 16
#define net_split_0_s3_H 1
#define net_split_0_s3_D 1
#define net_split_0_s3_P 1
#define net_split_0_s3_datasize 8
#define net_split_0_s3_dbase_byte_offset 48
#define net_split_0_s3_dram_size_num_bytes 16
/* net_split_0 HMB_output out */
#define net_split_0_out_W 16
#define net_split_0_out_H 1
#define net_split_0_out_D 1
#define net_split_0_out_P 1
#define net_split_0_out_datasize 8
#define net_split_0_out_dbase_byte_offset 64
#define net_split_0_out_dram_size_num_bytes 16
