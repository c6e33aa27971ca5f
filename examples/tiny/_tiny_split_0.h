#define tiny_split_0_DAG_NAME           "tiny_split_0"
#define tiny_split_0_use_ping_pong_vmem 1
#define tiny_split_0_image_start        2415919104 /* 0x90000000 */
#define tiny_split_0_image_size         16
#define tiny_split_0_dagbin_start       2415919112 /* 0x90000008 */

/* tiny_split_0 HMB_input data */
#define tiny_split_0_data_P                  1
#define tiny_split_0_data_D                  3
#define tiny_split_0_data_H                  8
#define tiny_split_0_data_W                  10
#define tiny_split_0_data_dpitch_num_bytes   80
#define tiny_split_0_data_dram_format        1
#define tiny_split_0_data_drotate            1
#define tiny_split_0_data_vflip              1
#define tiny_split_0_data_drotate_bit_offset 640
#define tiny_split_0_data_vflip_bit_offset   560
#define tiny_split_0_data_sign               1
#define tiny_split_0_data_datasize           8
#define tiny_split_0_data_expoffset          -4
#define tiny_split_0_data_expbits            0
#define tiny_split_0_data_dram_size_num_bytes 240
#define tiny_split_0_data_dbase_byte_offset  4096
#define tiny_split_0_data_qubrix_demangled_name "tiny/in"

/* tiny_split_0 HMB_output mask */
#define tiny_split_0_mask_is_bitvector       1
#define tiny_split_0_mask_W                  96
#define tiny_split_0_mask_dram_size_num_bytes 12
#define tiny_split_0_mask_dbase_byte_offset  4336

/* $gain */
#define gain_boffset 32
#define gain_bsize   16

/* tiny_split_0 SMB_input lut */
#define tiny_split_0_lut_vbase_byte_offset 512
