network
sed -i -e '38,61s,^,//,' in/net_split_1.h
