network
sed -i -e '41i/* the dims */' -e '45i// the format' in/net_split_1.h
