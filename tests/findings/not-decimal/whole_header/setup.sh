network
sed -i 's/ 8$/ 0x8/' in/net_split_1.h
