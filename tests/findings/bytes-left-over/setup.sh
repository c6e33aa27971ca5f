cp vproc.bin net.bin
printf '12' >>net.bin
