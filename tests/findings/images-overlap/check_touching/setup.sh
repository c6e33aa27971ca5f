cp plain.bin net.bin
put 0xac "$(word 4160)$(word 64)$(word 4160)"
