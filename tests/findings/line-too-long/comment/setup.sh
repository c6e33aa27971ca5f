network
sed -i '1i/* '"$(times 1100 x)"' */' in/net_split_1.h
