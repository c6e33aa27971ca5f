network
sed -n '37,46p' in/net_split_1.h | sed 's/p3/p9/g' >copy
sed -n '47,61p' in/net_split_1.h >>copy
sed -i '61r copy' in/net_split_1.h
