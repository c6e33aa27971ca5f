network
sed -n '37,61p' in/net_split_1.h | sed 's/ 8$/ 16/' >copy && sed -i '61r copy' in/net_split_1.h
