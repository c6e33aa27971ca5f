#define net_split_3_DAG_NAME "net_split_3"
#define net_split_3_image_size 5
#define net_split_3_image_start 16384
#define net_split_3_dagbin_start 16384
/* net_split_3 HMB_input s3 */
#define net_split_3_s3_W 16
#define net_split_3_s3_H 1
#define net_split_3_s3_D 1
#define net_split_3_s3_P 1
#define net_split_3_s3_datasize 8
#define net_split_3_s3_dbase_byte_offset 0
#define net_split_3_s3_dram_size_num_bytes 16
/* net_split_3 HMB_output out */
#define net_split_3_out_W 16
#define net_split_3_out_H 1
#define net_split_3_out_D 1
#define net_split_3_out_P 1
#define net_split_3_out_datasize 8
#define net_split_3_out_dbase_byte_offset 16
#define net_split_3_out_dram_size_num_bytes 16
