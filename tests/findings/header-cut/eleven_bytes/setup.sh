cp plain.bin net.bin
truncate -s 11 net.bin
