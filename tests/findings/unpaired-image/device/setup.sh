ln -s /dev/null in/null_split_1.dvi
