network
sed -i 's/_p3_pflip_bit/_p3 _pflip_bit/' in/net_split_1.h
