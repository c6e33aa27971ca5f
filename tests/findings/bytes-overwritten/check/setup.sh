cp plain.bin net.bin
put 0x5b0 "$(word 0)"
put 0xa2c 'data\0\0'
put 0xa28 "$(word 0)"
