network
sed -i -e '/_p3_W/i//#define net_split_1_p3_W 44' -e '/_p3_H/a//#define net_split_1_p3_H 8' in/net_split_1.h
