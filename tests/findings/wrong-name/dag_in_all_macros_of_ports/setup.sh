network
sed -i '11,$s/net_split_1/net_split_0/' in/net_split_1.h
