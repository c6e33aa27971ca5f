cp plain.bin net.bin
put 0x18 "$(word 0)"
