/*
 * qubrix DAG description
 *
 *   network  wake_word
 *   split    2 of 0..2, classifier: scores and trigger bits
 *   image    wake_word_split_2.dvi
 *
 * Numbers are decimal. Pitches, sizes and base offsets count bytes; the offsets
 * of flips, rotates and vproc variables count bits.
 */
#ifndef WAKE_WORD_SPLIT_2_H
#define WAKE_WORD_SPLIT_2_H

/* DAG */
#define wake_word_split_2_DAG_NAME                         "wake_word_split_2"
#define wake_word_split_2_use_ping_pong_vmem               0            /* off */
#define wake_word_split_2_image_start                      2415927296   /* 0x90002000 */
#define wake_word_split_2_image_size                       3083
#define wake_word_split_2_dagbin_start                     2415927552   /* 0x90002100 */
#define wake_word_split_2_dagbin_size                      768

/* input ports of the HMB: 1 */

/* wake_word_split_2 HMB_input features */
#define	wake_word_split_2_features_qubrix_demangled_name	"wake_word/encoder/block_3/relu"
#define	wake_word_split_2_features_is_bitvector	0
#define	wake_word_split_2_features_dbase_byte_offset	36224
#define	wake_word_split_2_features_W	5
#define	wake_word_split_2_features_H	13
#define	wake_word_split_2_features_D	64
#define	wake_word_split_2_features_P	1
#define	wake_word_split_2_features_dpitch_num_bytes	128
#define	wake_word_split_2_features_dram_format	4
#define	wake_word_split_2_features_dram_size_num_bytes	8192	/* 1 * 64 * 128 */
#define	wake_word_split_2_features_sign	0
#define	wake_word_split_2_features_datasize	8
#define	wake_word_split_2_features_expoffset	-5
#define	wake_word_split_2_features_expbits	0
#define	wake_word_split_2_features_drotate	0
#define	wake_word_split_2_features_hflip	0
#define	wake_word_split_2_features_vflip	1
#define	wake_word_split_2_features_dflip	1
#define	wake_word_split_2_features_pflip	0
#define	wake_word_split_2_features_drotate_bit_offset	0
#define	wake_word_split_2_features_hflip_bit_offset	0
#define	wake_word_split_2_features_vflip_bit_offset	480
#define	wake_word_split_2_features_dflip_bit_offset	64512
#define	wake_word_split_2_features_pflip_bit_offset	0

/* output ports of the HMB: 2 */

/* wake_word_split_2 HMB_output scores */
#define	wake_word_split_2_scores_qubrix_demangled_name	"wake_word/classifier/softmax"
#define	wake_word_split_2_scores_is_bitvector	0
#define	wake_word_split_2_scores_dbase_byte_offset	46464
#define	wake_word_split_2_scores_W	12
#define	wake_word_split_2_scores_H	1
#define	wake_word_split_2_scores_D	1
#define	wake_word_split_2_scores_P	1
#define	wake_word_split_2_scores_dpitch_num_bytes	64
#define	wake_word_split_2_scores_dram_format	0
#define	wake_word_split_2_scores_dram_size_num_bytes	64	/* 1 * 1 * 64 */
#define	wake_word_split_2_scores_sign	1
#define	wake_word_split_2_scores_datasize	16
#define	wake_word_split_2_scores_expoffset	-15
#define	wake_word_split_2_scores_expbits	5
#define	wake_word_split_2_scores_drotate	0
#define	wake_word_split_2_scores_hflip	0
#define	wake_word_split_2_scores_vflip	0
#define	wake_word_split_2_scores_dflip	0
#define	wake_word_split_2_scores_pflip	0
#define	wake_word_split_2_scores_drotate_bit_offset	0
#define	wake_word_split_2_scores_hflip_bit_offset	0
#define	wake_word_split_2_scores_vflip_bit_offset	0
#define	wake_word_split_2_scores_dflip_bit_offset	0
#define	wake_word_split_2_scores_pflip_bit_offset	0

/* wake_word_split_2 HMB_output trigger */
#define	wake_word_split_2_trigger_qubrix_demangled_name	"wake_word/classifier/threshold/greater"
#define	wake_word_split_2_trigger_is_bitvector	1
#define	wake_word_split_2_trigger_dbase_byte_offset	46528
#define	wake_word_split_2_trigger_W	12
#define	wake_word_split_2_trigger_H	1
#define	wake_word_split_2_trigger_D	1
#define	wake_word_split_2_trigger_P	1
#define	wake_word_split_2_trigger_dpitch_num_bytes	64
#define	wake_word_split_2_trigger_dram_format	3
#define	wake_word_split_2_trigger_dram_size_num_bytes	64	/* 1 * 1 * 64 */
#define	wake_word_split_2_trigger_sign	0
#define	wake_word_split_2_trigger_datasize	1
#define	wake_word_split_2_trigger_expoffset	0
#define	wake_word_split_2_trigger_expbits	0
#define	wake_word_split_2_trigger_drotate	0
#define	wake_word_split_2_trigger_hflip	1
#define	wake_word_split_2_trigger_vflip	0
#define	wake_word_split_2_trigger_dflip	0
#define	wake_word_split_2_trigger_pflip	0
#define	wake_word_split_2_trigger_drotate_bit_offset	0
#define	wake_word_split_2_trigger_hflip_bit_offset	11
#define	wake_word_split_2_trigger_vflip_bit_offset	0
#define	wake_word_split_2_trigger_dflip_bit_offset	0
#define	wake_word_split_2_trigger_pflip_bit_offset	0

/* blocks of the SMB: 3 */

/* wake_word_split_2 SMB_input class_bias */
#define wake_word_split_2_class_bias_vbase_byte_offset     0

/* wake_word_split_2 SMB_input softmax_lut */
#define wake_word_split_2_softmax_lut_vbase_byte_offset    64

/* wake_word_split_2 SMB_input score_history */
#define wake_word_split_2_score_history_vbase_byte_offset  1088

/* vproc self-defined variables: 2 */

/* $vp_smooth_alpha */
#define vp_smooth_alpha_boffset                            0
#define vp_smooth_alpha_bsize                              8

/* $vp_hold_frames */
#define vp_hold_frames_boffset                             8
#define vp_hold_frames_bsize                               8

#endif /* WAKE_WORD_SPLIT_2_H */
