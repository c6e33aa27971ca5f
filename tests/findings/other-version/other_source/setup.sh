cp plain.bin net.bin
put 0x4 "$(word 305419896)"
