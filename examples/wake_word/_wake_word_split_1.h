/*
 * qubrix DAG description
 *
 *   network  wake_word
 *   split    1 of 0..2, encoder: features and recurrent state
 *   image    wake_word_split_1.dvi
 *
 * Numbers are decimal. Pitches, sizes and base offsets count bytes; the offsets
 * of flips, rotates and vproc variables count bits.
 */
#ifndef WAKE_WORD_SPLIT_1_H
#define WAKE_WORD_SPLIT_1_H

/* DAG */
#define wake_word_split_1_DAG_NAME                         "wake_word_split_1"
#define wake_word_split_1_use_ping_pong_vmem               1            /* on */
#define wake_word_split_1_image_start                      2415923200   /* 0x90001000 */
#define wake_word_split_1_image_size                       4096
#define wake_word_split_1_dagbin_start                     2415923456   /* 0x90001100 */
#define wake_word_split_1_dagbin_size                      768

/* input ports of the HMB: 4 */

/* wake_word_split_1 HMB_input mel */
#define	wake_word_split_1_mel_qubrix_demangled_name	"wake_word/frontend/mel/log_quant"
#define	wake_word_split_1_mel_is_bitvector	0
#define	wake_word_split_1_mel_dbase_byte_offset	32000
#define	wake_word_split_1_mel_W	40
#define	wake_word_split_1_mel_H	49
#define	wake_word_split_1_mel_D	1
#define	wake_word_split_1_mel_P	1
#define	wake_word_split_1_mel_dpitch_num_bytes	1984
#define	wake_word_split_1_mel_dram_format	1
#define	wake_word_split_1_mel_dram_size_num_bytes	1984	/* 1 * 1 * 1984 */
#define	wake_word_split_1_mel_sign	1
#define	wake_word_split_1_mel_datasize	8
#define	wake_word_split_1_mel_expoffset	-4
#define	wake_word_split_1_mel_expbits	0
#define	wake_word_split_1_mel_drotate	0
#define	wake_word_split_1_mel_hflip	1
#define	wake_word_split_1_mel_vflip	1
#define	wake_word_split_1_mel_dflip	0
#define	wake_word_split_1_mel_pflip	0
#define	wake_word_split_1_mel_drotate_bit_offset	0
#define	wake_word_split_1_mel_hflip_bit_offset	312
#define	wake_word_split_1_mel_vflip_bit_offset	15360
#define	wake_word_split_1_mel_dflip_bit_offset	0
#define	wake_word_split_1_mel_pflip_bit_offset	0

/* wake_word_split_1 HMB_input energy */
#define	wake_word_split_1_energy_qubrix_demangled_name	"wake_word/frontend/energy"
#define	wake_word_split_1_energy_is_bitvector	0
#define	wake_word_split_1_energy_dbase_byte_offset	33984
#define	wake_word_split_1_energy_W	49
#define	wake_word_split_1_energy_H	1
#define	wake_word_split_1_energy_D	1
#define	wake_word_split_1_energy_P	1
#define	wake_word_split_1_energy_dpitch_num_bytes	128
#define	wake_word_split_1_energy_dram_format	0
#define	wake_word_split_1_energy_dram_size_num_bytes	128	/* 1 * 1 * 128 */
#define	wake_word_split_1_energy_sign	0
#define	wake_word_split_1_energy_datasize	16
#define	wake_word_split_1_energy_expoffset	-8
#define	wake_word_split_1_energy_expbits	0
#define	wake_word_split_1_energy_drotate	0
#define	wake_word_split_1_energy_hflip	0
#define	wake_word_split_1_energy_vflip	0
#define	wake_word_split_1_energy_dflip	0
#define	wake_word_split_1_energy_pflip	0
#define	wake_word_split_1_energy_drotate_bit_offset	0
#define	wake_word_split_1_energy_hflip_bit_offset	0
#define	wake_word_split_1_energy_vflip_bit_offset	0
#define	wake_word_split_1_energy_dflip_bit_offset	0
#define	wake_word_split_1_energy_pflip_bit_offset	0

/* wake_word_split_1 HMB_input voiced */
#define	wake_word_split_1_voiced_qubrix_demangled_name	"wake_word/frontend/vad/voiced"
#define	wake_word_split_1_voiced_is_bitvector	1
#define	wake_word_split_1_voiced_dbase_byte_offset	34112
#define	wake_word_split_1_voiced_W	49
#define	wake_word_split_1_voiced_H	1
#define	wake_word_split_1_voiced_D	1
#define	wake_word_split_1_voiced_P	1
#define	wake_word_split_1_voiced_dpitch_num_bytes	64
#define	wake_word_split_1_voiced_dram_format	3
#define	wake_word_split_1_voiced_dram_size_num_bytes	64	/* 1 * 1 * 64 */
#define	wake_word_split_1_voiced_drotate	0
#define	wake_word_split_1_voiced_hflip	1
#define	wake_word_split_1_voiced_vflip	0
#define	wake_word_split_1_voiced_dflip	0
#define	wake_word_split_1_voiced_pflip	0
#define	wake_word_split_1_voiced_drotate_bit_offset	0
#define	wake_word_split_1_voiced_hflip_bit_offset	48
#define	wake_word_split_1_voiced_vflip_bit_offset	0
#define	wake_word_split_1_voiced_dflip_bit_offset	0
#define	wake_word_split_1_voiced_pflip_bit_offset	0

/* wake_word_split_1 HMB_input state_in */
#define	wake_word_split_1_state_in_is_bitvector	0
#define	wake_word_split_1_state_in_dbase_byte_offset	34176
#define	wake_word_split_1_state_in_W	16
#define	wake_word_split_1_state_in_H	16
#define	wake_word_split_1_state_in_D	4
#define	wake_word_split_1_state_in_P	2
#define	wake_word_split_1_state_in_dpitch_num_bytes	256
#define	wake_word_split_1_state_in_dram_format	2
#define	wake_word_split_1_state_in_dram_size_num_bytes	2048	/* 2 * 4 * 256 */
#define	wake_word_split_1_state_in_sign	1
#define	wake_word_split_1_state_in_datasize	8
#define	wake_word_split_1_state_in_expoffset	-6
#define	wake_word_split_1_state_in_expbits	0
#define	wake_word_split_1_state_in_drotate	1
#define	wake_word_split_1_state_in_hflip	0
#define	wake_word_split_1_state_in_vflip	0
#define	wake_word_split_1_state_in_dflip	0
#define	wake_word_split_1_state_in_pflip	1
#define	wake_word_split_1_state_in_drotate_bit_offset	4096
#define	wake_word_split_1_state_in_hflip_bit_offset	0
#define	wake_word_split_1_state_in_vflip_bit_offset	0
#define	wake_word_split_1_state_in_dflip_bit_offset	0
#define	wake_word_split_1_state_in_pflip_bit_offset	8192

/* output ports of the HMB: 2 */

/* wake_word_split_1 HMB_output features */
#define	wake_word_split_1_features_qubrix_demangled_name	"wake_word/encoder/block_3/relu"
#define	wake_word_split_1_features_is_bitvector	0
#define	wake_word_split_1_features_dbase_byte_offset	36224
#define	wake_word_split_1_features_W	5
#define	wake_word_split_1_features_H	13
#define	wake_word_split_1_features_D	64
#define	wake_word_split_1_features_P	1
#define	wake_word_split_1_features_dpitch_num_bytes	128
#define	wake_word_split_1_features_dram_format	4
#define	wake_word_split_1_features_dram_size_num_bytes	8192	/* 1 * 64 * 128 */
#define	wake_word_split_1_features_sign	0
#define	wake_word_split_1_features_datasize	8
#define	wake_word_split_1_features_expoffset	-5
#define	wake_word_split_1_features_expbits	0
#define	wake_word_split_1_features_drotate	0
#define	wake_word_split_1_features_hflip	0
#define	wake_word_split_1_features_vflip	0
#define	wake_word_split_1_features_dflip	1
#define	wake_word_split_1_features_pflip	0
#define	wake_word_split_1_features_drotate_bit_offset	0
#define	wake_word_split_1_features_hflip_bit_offset	0
#define	wake_word_split_1_features_vflip_bit_offset	0
#define	wake_word_split_1_features_dflip_bit_offset	64512
#define	wake_word_split_1_features_pflip_bit_offset	0

/* wake_word_split_1 HMB_output state_out */
#define	wake_word_split_1_state_out_qubrix_demangled_name	"wake_word/encoder/gru/state"
#define	wake_word_split_1_state_out_is_bitvector	0
#define	wake_word_split_1_state_out_dbase_byte_offset	44416
#define	wake_word_split_1_state_out_W	16
#define	wake_word_split_1_state_out_H	16
#define	wake_word_split_1_state_out_D	4
#define	wake_word_split_1_state_out_P	2
#define	wake_word_split_1_state_out_dpitch_num_bytes	256
#define	wake_word_split_1_state_out_dram_format	2
#define	wake_word_split_1_state_out_dram_size_num_bytes	2048	/* 2 * 4 * 256 */
#define	wake_word_split_1_state_out_sign	1
#define	wake_word_split_1_state_out_datasize	8
#define	wake_word_split_1_state_out_expoffset	-6
#define	wake_word_split_1_state_out_expbits	0
#define	wake_word_split_1_state_out_drotate	0
#define	wake_word_split_1_state_out_hflip	0
#define	wake_word_split_1_state_out_vflip	0
#define	wake_word_split_1_state_out_dflip	1
#define	wake_word_split_1_state_out_pflip	1
#define	wake_word_split_1_state_out_drotate_bit_offset	0
#define	wake_word_split_1_state_out_hflip_bit_offset	0
#define	wake_word_split_1_state_out_vflip_bit_offset	0
#define	wake_word_split_1_state_out_dflip_bit_offset	6144
#define	wake_word_split_1_state_out_pflip_bit_offset	8192

#endif /* WAKE_WORD_SPLIT_1_H */
