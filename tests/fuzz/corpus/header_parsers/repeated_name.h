_DAG_NAME a
HMB_input a
_a_a_a_a_a_W_a_H 1 a_a_D 2
aaaa_a_hflip_a_hflip_bit_offset 3
