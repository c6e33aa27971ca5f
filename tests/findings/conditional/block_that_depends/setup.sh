network
sed -i -e '37i#ifdef FAST' -e '61a#endif' in/net_split_1.h
