network
sed -i '/_image_size/d' in/net_split_1.h
