network
sed -i '/_p3_H /d' in/net_split_1.h
