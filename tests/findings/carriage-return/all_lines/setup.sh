network
sed -i 's/$/\r/' in/net_split_1.h
