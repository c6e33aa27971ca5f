network
sed -i 's/net_split_1_image_start/net_splt_1_image_start/' in/net_split_1.h
