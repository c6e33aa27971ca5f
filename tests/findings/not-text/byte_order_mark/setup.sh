network
sed -i '1s/^/\xef\xbb\xbf/' in/net_split_1.h
