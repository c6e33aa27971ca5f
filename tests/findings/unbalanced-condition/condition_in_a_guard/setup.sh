network
sed -i '37i#ifdef FAST' in/net_split_1.h
