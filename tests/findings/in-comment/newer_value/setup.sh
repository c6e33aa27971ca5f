network
sed -i '/_p3_W/a//#define net_split_1_p3_W 44' in/net_split_1.h
