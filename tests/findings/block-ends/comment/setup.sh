network
sed -i '41i/* the dims */' in/net_split_1.h
