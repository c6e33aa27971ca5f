cp plain.bin net.bin
put 0x28 'a/b\x00\x00'
put 0xc4 'a\x1f'
