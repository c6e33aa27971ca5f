cp plain.bin net.bin
put 0x159 '\x40'
put 0x591 '\x80'
put 0xa09 '\x3f'
