cp plain.bin net.bin
put 0xe2c "$(word 1)$(word 2)$(word 3)$(word 3)"
put 0xe59 "\x08"
