truncate -s 2147483647 in/net_split_0.dvi in/net_split_1.dvi in/net_split_2.dvi
