network
sed -i 's/_image_size 5/_image_size 0x5/' in/net_split_1.h
