network
tr '\n' '\r' <in/net_split_1.h >text && mv text in/net_split_1.h
