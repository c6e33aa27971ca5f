network
sed -i -e '/_p3_W/s/40/"40"/' -e '/_p3_H/s/8/"8 rows"/' in/net_split_1.h
