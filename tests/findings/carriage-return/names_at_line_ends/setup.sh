network
sed -i -e 's,/\* \(.*HMB.*\) \*/,// \1,' -e 's/$/\r/' in/net_split_1.h
