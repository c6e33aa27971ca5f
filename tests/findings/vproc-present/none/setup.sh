cp plain.bin net.bin
