cp vproc.bin net.bin
put 0x28 "$(times 128 n)"
put 0x17c "$(times 512 n)"
put 0x1064 "$(times 512 n)"
put 0x12bc "$(times 128 n)"
put 0x1344 "$(times 128 n)"
