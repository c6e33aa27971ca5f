cp plain.bin net.bin
put 0x37c "$(times 512 '\x00')"
