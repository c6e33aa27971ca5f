cp plain.bin net.bin
put 0xa7 'x'
put 0x181 'x'
put 0x57b 'x'
