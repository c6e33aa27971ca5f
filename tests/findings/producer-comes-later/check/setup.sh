cp plain.bin net.bin
put 0x17c 'prob'
