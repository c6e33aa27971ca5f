cp plain.bin net.bin
printf '1' >>net.bin
