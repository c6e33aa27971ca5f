cp plain.bin net.bin
put 0xb0 "$(word 0)"
put 0xc0 "$(word 2160)"
truncate -s $((0x1264)) net.bin
