network
sed -i '37{p}' in/net_split_1.h
