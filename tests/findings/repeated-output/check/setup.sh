cp plain.bin net.bin
put 0xe64 'middle'
