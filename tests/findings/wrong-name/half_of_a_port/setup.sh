network
sed -i '50,60s/_p3_/_p33_/' in/net_split_1.h
