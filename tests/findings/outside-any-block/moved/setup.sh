network
sed -i -e '/_p2_W/d' -e '/_p3_W/i#define net_split_1_p2_W 40' in/net_split_1.h
