cp plain.bin net.bin
put 0x28 'a/b'
truncate -s $((0x12a3)) net.bin
