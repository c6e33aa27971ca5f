network
sed -i -e '1,2d' -e '/_p4_dram_format/,$d' in/net_split_1.h
