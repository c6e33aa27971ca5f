network
sed -i -e 's/NAME "net_split_1"/NAME net_split_1/' -e 's/$/\r/' in/net_split_1.h
