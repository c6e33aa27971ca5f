/* qubrix DAG description: stem, image vision_split_0.dvi */
#ifndef VISION_SPLIT_0_H
#define VISION_SPLIT_0_H

#define	stem_DAG_NAME	"stem"
#define	stem_use_ping_pong_vmem	1	/* on */
#define	stem_image_start	268435456	/* 0x10000000 */
#define	stem_image_size	24
#define	stem_dagbin_start	268439552	/* 0x10001000 */

/* stem HMB_input pixels */
#define	stem_pixels_qubrix_demangled_name	"camera/rgb"
#define	stem_pixels_is_bitvector	0
#define	stem_pixels_dbase_byte_offset	64
#define	stem_pixels_W	320
#define	stem_pixels_H	224
#define	stem_pixels_D	3
#define	stem_pixels_P	1
#define	stem_pixels_dpitch_num_bytes	71680
#define	stem_pixels_dram_format	2
#define	stem_pixels_dram_size_num_bytes	215040
#define	stem_pixels_sign	0
#define	stem_pixels_datasize	8
#define	stem_pixels_expoffset	-7
#define	stem_pixels_expbits	4
#define	stem_pixels_drotate	0
#define	stem_pixels_hflip	1
#define	stem_pixels_vflip	0
#define	stem_pixels_dflip	1
#define	stem_pixels_pflip	0
#define	stem_pixels_drotate_bit_offset	101
#define	stem_pixels_hflip_bit_offset	102
#define	stem_pixels_vflip_bit_offset	103
#define	stem_pixels_dflip_bit_offset	104
#define	stem_pixels_pflip_bit_offset	105

/* stem HMB_output features */
#define	stem_features_is_bitvector	1
#define	stem_features_dbase_byte_offset	215104
#define	stem_features_W	80
#define	stem_features_H	56
#define	stem_features_D	16
#define	stem_features_P	2
#define	stem_features_dpitch_num_bytes	4480
#define	stem_features_dram_format	1
#define	stem_features_dram_size_num_bytes	143360
#define	stem_features_drotate	1
#define	stem_features_pflip	1

/* $threshold */
#define	threshold_boffset	256
#define	threshold_bsize	32

/* $gain */
#define	gain_boffset	288
#define	gain_bsize	16

/* stem SMB_input weights */
#define	stem_weights_vbase_byte_offset	4096

#endif
