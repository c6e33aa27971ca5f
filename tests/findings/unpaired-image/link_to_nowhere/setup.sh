ln -s missing in/link.dvi
