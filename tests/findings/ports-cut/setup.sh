cp plain.bin net.bin
truncate -s $((0x1263)) net.bin
