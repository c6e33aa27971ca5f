cp vproc.bin net.bin
put 0x28 "$(times 127 n)"
put 0x17c "$(times 511 n)"
