network
sed -i 's/NAME "net_split_1"/NAME "net_split_1:0"/' in/net_split_1.h
