cp plain.bin net.bin
put 0x1c "$(word 2)$(word 0)"
