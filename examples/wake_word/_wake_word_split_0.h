/*
 * qubrix DAG description
 *
 *   network  wake_word
 *   split    0 of 0..2, front end: one second of audio to log mel features
 *   image    wake_word_split_0.dvi
 *
 * Numbers are decimal. Pitches, sizes and base offsets count bytes; the offsets
 * of flips, rotates and vproc variables count bits.
 */
#ifndef WAKE_WORD_SPLIT_0_H
#define WAKE_WORD_SPLIT_0_H

/* DAG */
#define wake_word_split_0_DAG_NAME                         "wake_word_split_0"
#define wake_word_split_0_use_ping_pong_vmem               1            /* on */
#define wake_word_split_0_image_start                      2415919104   /* 0x90000000 */
#define wake_word_split_0_image_size                       2304
#define wake_word_split_0_dagbin_start                     2415919360   /* 0x90000100 */
#define wake_word_split_0_dagbin_size                      768

/* input ports of the HMB: 1 */

/* wake_word_split_0 HMB_input audio */
#define	wake_word_split_0_audio_qubrix_demangled_name	"wake_word/input/audio"
#define	wake_word_split_0_audio_is_bitvector	0
#define	wake_word_split_0_audio_dbase_byte_offset	0
#define	wake_word_split_0_audio_W	16000
#define	wake_word_split_0_audio_H	1
#define	wake_word_split_0_audio_D	1
#define	wake_word_split_0_audio_P	1
#define	wake_word_split_0_audio_dpitch_num_bytes	32000
#define	wake_word_split_0_audio_dram_format	0
#define	wake_word_split_0_audio_dram_size_num_bytes	32000	/* 1 * 1 * 32000 */
#define	wake_word_split_0_audio_sign	1
#define	wake_word_split_0_audio_datasize	16
#define	wake_word_split_0_audio_expoffset	-15
#define	wake_word_split_0_audio_expbits	0
#define	wake_word_split_0_audio_drotate	0
#define	wake_word_split_0_audio_hflip	1
#define	wake_word_split_0_audio_vflip	0
#define	wake_word_split_0_audio_dflip	0
#define	wake_word_split_0_audio_pflip	0
#define	wake_word_split_0_audio_drotate_bit_offset	0
#define	wake_word_split_0_audio_hflip_bit_offset	255984
#define	wake_word_split_0_audio_vflip_bit_offset	0
#define	wake_word_split_0_audio_dflip_bit_offset	0
#define	wake_word_split_0_audio_pflip_bit_offset	0

/* output ports of the HMB: 3 */

/* wake_word_split_0 HMB_output mel */
#define	wake_word_split_0_mel_qubrix_demangled_name	"wake_word/frontend/mel/log_quant"
#define	wake_word_split_0_mel_is_bitvector	0
#define	wake_word_split_0_mel_dbase_byte_offset	32000
#define	wake_word_split_0_mel_W	40
#define	wake_word_split_0_mel_H	49
#define	wake_word_split_0_mel_D	1
#define	wake_word_split_0_mel_P	1
#define	wake_word_split_0_mel_dpitch_num_bytes	1984
#define	wake_word_split_0_mel_dram_format	1
#define	wake_word_split_0_mel_dram_size_num_bytes	1984	/* 1 * 1 * 1984 */
#define	wake_word_split_0_mel_sign	1
#define	wake_word_split_0_mel_datasize	8
#define	wake_word_split_0_mel_expoffset	-4
#define	wake_word_split_0_mel_expbits	0
#define	wake_word_split_0_mel_drotate	0
#define	wake_word_split_0_mel_hflip	0
#define	wake_word_split_0_mel_vflip	1
#define	wake_word_split_0_mel_dflip	0
#define	wake_word_split_0_mel_pflip	0
#define	wake_word_split_0_mel_drotate_bit_offset	0
#define	wake_word_split_0_mel_hflip_bit_offset	0
#define	wake_word_split_0_mel_vflip_bit_offset	15360
#define	wake_word_split_0_mel_dflip_bit_offset	0
#define	wake_word_split_0_mel_pflip_bit_offset	0

/* wake_word_split_0 HMB_output energy */
#define	wake_word_split_0_energy_qubrix_demangled_name	"wake_word/frontend/energy"
#define	wake_word_split_0_energy_is_bitvector	0
#define	wake_word_split_0_energy_dbase_byte_offset	33984
#define	wake_word_split_0_energy_W	49
#define	wake_word_split_0_energy_H	1
#define	wake_word_split_0_energy_D	1
#define	wake_word_split_0_energy_P	1
#define	wake_word_split_0_energy_dpitch_num_bytes	128
#define	wake_word_split_0_energy_dram_format	0
#define	wake_word_split_0_energy_dram_size_num_bytes	128	/* 1 * 1 * 128 */
#define	wake_word_split_0_energy_sign	0
#define	wake_word_split_0_energy_datasize	16
#define	wake_word_split_0_energy_expoffset	-8
#define	wake_word_split_0_energy_expbits	0
#define	wake_word_split_0_energy_drotate	0
#define	wake_word_split_0_energy_hflip	0
#define	wake_word_split_0_energy_vflip	0
#define	wake_word_split_0_energy_dflip	0
#define	wake_word_split_0_energy_pflip	0
#define	wake_word_split_0_energy_drotate_bit_offset	0
#define	wake_word_split_0_energy_hflip_bit_offset	0
#define	wake_word_split_0_energy_vflip_bit_offset	0
#define	wake_word_split_0_energy_dflip_bit_offset	0
#define	wake_word_split_0_energy_pflip_bit_offset	0

/* wake_word_split_0 HMB_output voiced */
#define	wake_word_split_0_voiced_qubrix_demangled_name	"wake_word/frontend/vad/voiced"
#define	wake_word_split_0_voiced_is_bitvector	1
#define	wake_word_split_0_voiced_dbase_byte_offset	34112
#define	wake_word_split_0_voiced_W	49
#define	wake_word_split_0_voiced_H	1
#define	wake_word_split_0_voiced_D	1
#define	wake_word_split_0_voiced_P	1
#define	wake_word_split_0_voiced_dpitch_num_bytes	64
#define	wake_word_split_0_voiced_dram_format	3
#define	wake_word_split_0_voiced_dram_size_num_bytes	64	/* 1 * 1 * 64 */
#define	wake_word_split_0_voiced_drotate	0
#define	wake_word_split_0_voiced_hflip	1
#define	wake_word_split_0_voiced_vflip	0
#define	wake_word_split_0_voiced_dflip	0
#define	wake_word_split_0_voiced_pflip	0
#define	wake_word_split_0_voiced_drotate_bit_offset	0
#define	wake_word_split_0_voiced_hflip_bit_offset	48
#define	wake_word_split_0_voiced_vflip_bit_offset	0
#define	wake_word_split_0_voiced_dflip_bit_offset	0
#define	wake_word_split_0_voiced_pflip_bit_offset	0

/* vproc self-defined variables: 3 */

/* $vp_agc_gain */
#define vp_agc_gain_boffset                                0
#define vp_agc_gain_bsize                                  16

/* $vp_agc_floor */
#define vp_agc_floor_boffset                               16
#define vp_agc_floor_bsize                                 16

/* $vp_frame_count */
#define vp_frame_count_boffset                             32
#define vp_frame_count_bsize                               32

/* blocks of the SMB: 2 */

/* wake_word_split_0 SMB_input window */
#define wake_word_split_0_window_vbase_byte_offset         0

/* wake_word_split_0 SMB_input filter_bank */
#define wake_word_split_0_filter_bank_vbase_byte_offset    1024

#endif /* WAKE_WORD_SPLIT_0_H */
