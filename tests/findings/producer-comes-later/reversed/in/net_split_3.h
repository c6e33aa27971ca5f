#define net_split_3_DAG_NAME "net_split_3"
#define net_split_3_image_size 5
#define net_split_3_image_start 16384
#define net_split_3_dagbin_start 16384
/* net_split_3 HMB_input image */
#define net_split_3_image_W 16
#define net_split_3_image_H 1
#define net_split_3_image_D 1
#define net_split_3_image_P 1
#define net_split_3_image_datasize 8
#define net_split_3_image_dbase_byte_offset 0
#define net_split_3_image_dram_size_num_bytes 16
/* net_split_3 HMB_output s1 */
#define net_split_3_s1_W 16
#define net_split_3_s1_H 1
#define net_split_3_s1_D 1
#define net_split_3_s1_P 1
#define net_split_3_s1_datasize 8
#define net_split_3_s1_dbase_byte_offset 16
#define net_split_3_s1_dram_size_num_bytes 16
