network
sed -i -e '37i#if 0' -e '61a#endif' in/net_split_1.h
