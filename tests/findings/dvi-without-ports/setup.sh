cp plain.bin net.bin
put 0xb8 "$(word 0)$(word 0)$(word 64)"
truncate -s $((0xa34)) net.bin
