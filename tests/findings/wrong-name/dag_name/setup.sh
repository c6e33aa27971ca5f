network
sed -i 's/NAME "net_split_1"/NAME "net_v2_split_1"/' in/net_split_1.h
