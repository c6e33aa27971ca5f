cp plain.bin net.bin
put 0xf '\x07'
put 0x15a '\x01\xff'
