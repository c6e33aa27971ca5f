cp vproc.bin net.bin
truncate -s $((0x13c7)) net.bin
