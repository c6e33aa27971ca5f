cp plain.bin net.bin
put 0x28 '.\x00\x00\x00\x00'
put 0xc4 '..\x00\x00\x00\x00'
