network
sed -i 's/_image_size/_image_sise/' in/net_split_1.h
