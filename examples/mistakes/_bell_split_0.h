/* qubrix DAG description: bell, front end */
#ifndef BELL_SPLIT_0_H
#define BELL_SPLIT_0_H

#define bell_split_0_DAG_NAME "bell_split_0"
#define bell_split_0_use_ping_pong_vmem 1
#define bell_split_0_image_start 0x90000000
#define bell_split_0_image_size 64
#define bell_split_0_dagbin_start 16

/* bell_split_0 HMB_input image */
#define bell_split_0_image_qubrix_demangled_name "bell/camera:0"
#define bell_split_0_image_W 160
#define bell_split_0_image_W_aligned 192
#define bell_split_0_image_H 120
/* three colours */
#define bell_split_0_image_D 3

/* bell_split_0 HMB_input background */
#define bell_split_0_background_W 160
#define bell_split_0_background_H 60 * 2
#define bell_split_0_background_D 3
#define bell_split_0_backgruond_P 1

/* bell_split_0 HMB_output person */
#define bell_split_0_person_W 20
#define bell_split_0_person_H 15
#define bell_split_0_person_D 1
#define bell_split_0_person_D 2
#define bell_split_0_person_dpitch_num_bytes 32B
#define bell_split_0_person_sign 256
#define bell_split_0_person_P
// #define bell_split_0_person_hflip 1

#endif
