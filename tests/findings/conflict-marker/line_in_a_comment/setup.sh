network
sed -i '1i/*\n=======\nports\n=======\n*/' in/net_split_1.h
