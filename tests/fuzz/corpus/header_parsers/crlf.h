#define net_DAG_NAME "net"
#define net_use_ping_pong_vmem 1
#define net_image_start 4096 /* 0x1000 */
#define net_image_size 64
#define net_dagbin_start 8192

/* net HMB_input data */
#define net_data_qubrix_demangled_name "net/in/data:0"
#define net_data_is_bitvector -4
#define net_data_dbase_byte_offset -3
#define net_data_drotate_bit_offset -2
#define net_data_hflip_bit_offset -1
#define net_data_vflip_bit_offset 0
#define net_data_dflip_bit_offset 1
#define net_data_pflip_bit_offset 2
#define net_data_W 3
#define net_data_H 4
#define net_data_D 5
#define net_data_P 6
#define net_data_dpitch_num_bytes 7
#define net_data_dram_format 8
#define net_data_dram_size_num_byt