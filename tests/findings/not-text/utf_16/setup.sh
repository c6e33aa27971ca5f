network
iconv -t UTF-16 in/net_split_1.h >text && mv text in/net_split_1.h
