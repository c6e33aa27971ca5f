network
sed -i '/_image_size/i>>>>>>> other' in/net_split_1.h
