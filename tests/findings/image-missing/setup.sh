ln -s missing in/net.dvi
