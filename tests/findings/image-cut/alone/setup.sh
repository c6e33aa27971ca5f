cp plain.bin net.bin
truncate -s $((0x12a3)) net.bin
