cp plain.bin net.bin
put 0x18 "$(word 4160)"
put 0xb4 "$(word 8255)"
