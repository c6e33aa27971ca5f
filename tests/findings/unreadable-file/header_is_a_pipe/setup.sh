mkfifo in/net.h
