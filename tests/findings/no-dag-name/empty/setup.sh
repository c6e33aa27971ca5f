network
: >in/net_split_1.h
