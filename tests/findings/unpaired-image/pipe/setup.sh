mkfifo in/pipe.dvi
