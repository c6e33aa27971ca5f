cp plain.bin net.bin
put 0xac "$(word 4159)$(word 64)$(word 4159)"
