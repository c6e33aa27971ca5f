#define	head_DAG_NAME	"head"
#define	head_use_ping_pong_vmem	0
#define	head_image_start	268443648
#define	head_image_size	10
#define	head_dagbin_start	268447744

/* head HMB_input features */
#define	head_features_qubrix_demangled_name	"head/pool_3/max"
#define	head_features_is_bitvector	0
#define	head_features_dbase_byte_offset	358464
#define	head_features_drotate_bit_offset	0
#define	head_features_hflip_bit_offset	0
#define	head_features_vflip_bit_offset	4294967295
#define	head_features_dflip_bit_offset	0
#define	head_features_pflip_bit_offset	0
#define	head_features_W	80
#define	head_features_H	56
#define	head_features_D	16
#define	head_features_P	2
#define	head_features_dpitch_num_bytes	4480
#define	head_features_dram_format	1
#define	head_features_dram_size_num_bytes	143360
#define	head_features_sign	1
#define	head_features_datasize	16
#define	head_features_expoffset	3
#define	head_features_expbits	0
#define	head_features_drotate	0
#define	head_features_hflip	0
#define	head_features_vflip	1
#define	head_features_dflip	0
#define	head_features_pflip	0

/* head SMB_input scale */
#define	head_scale_vbase_byte_offset	128

/* head SMB_input bias */
#define	head_bias_vbase_byte_offset	192
