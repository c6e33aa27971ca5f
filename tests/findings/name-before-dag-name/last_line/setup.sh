network
sed -i -e '4{h;d}' -e '${p;x}' in/net_split_1.h
