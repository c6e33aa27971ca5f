network
sed -i -e '/_p3_W/s/40/40.0f/' -e '/_p3_H/s/8/8.5/' in/net_split_1.h
