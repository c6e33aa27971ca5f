cp plain.bin net.bin
put 0xac "$(word 4096)$(word 64)$(word 4096)"
