cp plain.bin net.bin
put 0x5b4 'midxle'
