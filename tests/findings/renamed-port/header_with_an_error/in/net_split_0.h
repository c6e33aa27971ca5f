#define net_split_0_DAG_NAME "net_split_0"
#define net_split_0_image_size 5
#define net_split_0_image_start 4096
#define net_split_0_dagbin_start 4096
/* net_split_0 HMB_input image */
#define net_split_0_image_W 16
#define net_split_0_image_H 1
#define net_split_0_image_D 1
#define net_split_0_image_P 1
#define net_split_0_image_datasize 8
#define net_split_0_image_dbase_byte_offset 0
#define net_split_0_image_dram_size_num_bytes 16
/* net_split_0 HMB_output s1 */
#define net_split_0_s1_W 16
#define net_split_0_s1_H 1
#define net_split_0_s1_D 1
#define net_split_0_s1_P 1
#define net_split_0_s1_datasize 8
#define net_split_0_s1_dbase_byte_offset 16
#define net_split_0_s1_dram_size_num_bytes 16
