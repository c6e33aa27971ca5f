cp plain.bin net.bin
put 0x8 "$(word 0)"
truncate -s 12 net.bin
