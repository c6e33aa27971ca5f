network
head -c 2500 in/net_split_1.h >cut && mv cut in/net_split_1.h
