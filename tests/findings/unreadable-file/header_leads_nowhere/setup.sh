ln -s missing in/net.h
