cp plain.bin net.bin
put 0xa9 '\x02'
