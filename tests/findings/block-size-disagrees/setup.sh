cp plain.bin net.bin
put 0x24 "$(word 2225)"
