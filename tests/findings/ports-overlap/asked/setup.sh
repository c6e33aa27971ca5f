cp plain.bin net.bin
put 0xe60 "$(word 31)"
