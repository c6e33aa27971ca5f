cp plain.bin net.bin
truncate -s $((0x143)) net.bin
