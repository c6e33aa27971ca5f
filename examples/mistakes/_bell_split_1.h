/* bell_split_1 HMB_input person */
#define bell_split_1_person_W 20
#define bell_split_1_person_H 15
#define bell_split_1_person_D 1
#define bell_split_1_DAG_NAME "bell_split_1"
#define bell_split_1_image_start 65536
#define bell_split_1_image_size 32
#define bell_split_1_dagbin_start 65568

// bell_split_1 HMB_output ring
#define bell_split_1_ring_W 4

/* bell_split_1 HMB_output volume */
#define bell_split_1_volume_W 1
#ifdef bell_split_1_volume_LOUD
#define bell_split_1_volume_H 8
#endif
