network
sed -i '/HMB_input p3/d' in/net_split_1.h
