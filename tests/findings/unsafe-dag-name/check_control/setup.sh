cp plain.bin net.bin
put 0x28 '\x01'
put 0xc4 '\x7f'
