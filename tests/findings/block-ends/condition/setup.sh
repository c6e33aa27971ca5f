network
sed -i -e '41i#ifdef FAST' -e '42i#endif' in/net_split_1.h
