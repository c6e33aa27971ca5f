cp vproc.bin net.bin
put 0x12ac "$(word 269)"
