network
sed -i '10s,.*,/* the HMB_input ports follow */,' in/net_split_1.h
