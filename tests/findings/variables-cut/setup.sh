cp vproc.bin net.bin
truncate -s $((0x1343)) net.bin
