cp plain.bin net.bin
put 0x10 "$(word 4294967280)$(word 64)$(word 4294967295)"
