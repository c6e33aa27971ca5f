network
sed -i '$d' in/net_split_1.h
