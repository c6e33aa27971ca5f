cp plain.bin net.bin
put 0xc4 'first\x00'
