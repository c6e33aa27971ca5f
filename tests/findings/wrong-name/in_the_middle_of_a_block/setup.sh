network
sed -i 's/_p3_W/_p33_W/' in/net_split_1.h
