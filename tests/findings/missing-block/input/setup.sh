network
sed -i '/HMB_input p2/d' in/net_split_1.h
