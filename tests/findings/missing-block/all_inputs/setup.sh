network
sed -i '/HMB_input/d' in/net_split_1.h
