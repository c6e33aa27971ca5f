network
sed -i '/_p3_W/s,$, /* '"$(times 1000 x)"' */,' in/net_split_1.h
