cp plain.bin net.bin
truncate -s 0 net.bin
