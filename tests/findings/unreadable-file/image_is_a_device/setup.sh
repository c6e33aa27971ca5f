ln -s /dev/zero in/net.dvi
