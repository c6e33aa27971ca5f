network
echo '#endif' >>in/net_split_1.h
