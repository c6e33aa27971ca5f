network
sed -i 's/HMB_input p3/HMB_input p2/' in/net_split_1.h
