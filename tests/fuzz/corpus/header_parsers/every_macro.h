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
#define net_data_dram_size_num_bytes 9
#define net_data_sign 10
#define net_data_datasize 11
#define net_data_expoffset 12
#define net_data_expbits 13
#define net_data_drotate 14
#define net_data_hflip 15
#define net_data_vflip 16
#define net_data_dflip 17
#define net_data_pflip 18

/* net HMB_output prob */
#define net_prob_W 10
#define net_prob_hflip 3

/* $gain */
#define gain_boffset 8
#define gain_bsize 16

/* net SMB_input lut */
#define net_lut_vbase_byte_offset 256
