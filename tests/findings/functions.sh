# For the file setup.sh of a case, which runs in a copy of its folder.

# put OFFSET BYTES: writes bytes over those of net.bin. Bytes are written as for printf.
put() {
  printf "$2" | dd of=net.bin bs=1 seek=$(($1)) conv=notrunc status=none
}

# word NUMBER: the bytes of a number of 32 bits.
word() {
  printf '\\x%02x\\x%02x\\x%02x\\x%02x' $(($1 & 255)) $(($1 >> 8 & 255)) $(($1 >> 16 & 255)) $(($1 >> 24))
}

# times COUNT BYTES: bytes that are repeated.
times() {
  for ((i = 0; i < $1; ++i)); do
    printf '%s' "$2"
  done
}
