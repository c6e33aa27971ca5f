cp vproc.bin net.bin
put 0x17c '\x1b[0m'
put 0x37c '\x7f'
put 0x12bc '\x0a'
put 0x1344 '\x09'
