network
sed -i '/_p3_/s/\([0-9]\)$/\1;/' in/net_split_1.h
