cp plain.bin net.bin
put 0x2 '\x02'
