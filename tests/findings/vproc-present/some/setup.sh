cp vproc.bin net.bin
