network
sed -i '/_p3_W/i#define net_split_1_p3_W_aligned 64' in/net_split_1.h
