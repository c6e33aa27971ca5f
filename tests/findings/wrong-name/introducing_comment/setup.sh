network
sed -i 's/HMB_output p4/HMB_output p44/' in/net_split_1.h
