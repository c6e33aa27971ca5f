cp plain.bin net.bin
put 0xa08 '\x05'
put 0xa20 '\x01\x08\x02\x03'
put 0xa24 "$(word 17)$(word 18)"
