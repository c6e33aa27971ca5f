cp plain.bin net.bin
put 0x9f4 "$(word 1)$(word 2)$(word 3)$(word 4)"
