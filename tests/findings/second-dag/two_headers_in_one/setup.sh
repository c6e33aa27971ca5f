network
cat in/net_split_0.h >>in/net_split_1.h
