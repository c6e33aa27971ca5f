network
sed -i -e '1,2d' -e '$d' in/net_split_1.h && cat in/net_split_1.h in/net_split_1.h >twice && mv twice in/net_split_1.h
