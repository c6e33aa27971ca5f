network
sed -i '/HMB_output p4/d' in/net_split_1.h
