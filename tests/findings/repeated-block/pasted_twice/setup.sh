network
sed -n '37,61p' in/net_split_1.h >copy && sed -i '61r copy' in/net_split_1.h
