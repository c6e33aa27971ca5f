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

# port DAG KEYWORD NAME OFFSET: the lines of a port, as a compiler writes them.
port() {
  printf '/* %s %s %s */\n' "$1" "$2" "$3"
  while read -r ending value; do
    printf '#define %s_%s_%s %s\n' "$1" "$3" "$ending" "$value"
  done <<END
qubrix_demangled_name "net/$3"
is_bitvector 0
dbase_byte_offset $4
W 40
H 8
D 3
P 1
dpitch_num_bytes 320
dram_format 1
dram_size_num_bytes 960
sign 1
datasize 8
expoffset -4
expbits 0
drotate 0
hflip 0
vflip 0
dflip 0
pflip 0
drotate_bit_offset 0
hflip_bit_offset 0
vflip_bit_offset 0
dflip_bit_offset 0
pflip_bit_offset 0
END
}

# network: makes the folder in/ with two DAGs, as a compiler writes it. The lines of net_split_1.h: the DAG from 4 on,
# the inputs p2 and p3 from 11 and 37 on, the output p4 from 63 on.
network() {
  mkdir in
  for i in 0 1; do
    local dag=net_split_$i
    printf 'image' >in/$dag.dvi
    {
      printf '#ifndef NET_SPLIT_%s_H\n#define NET_SPLIT_%s_H\n\n' $i $i
      printf '#define %s_DAG_NAME "%s"\n#define %s_use_ping_pong_vmem 0\n' $dag $dag $dag
      printf '#define %s_image_start %s\n#define %s_image_size 5\n' $dag $((4096 * i)) $dag
      printf '#define %s_dagbin_start %s\n#define %s_dagbin_size 3\n\n' $dag $((4096 * i + 1)) $dag
      port $dag HMB_input p$((2 * i)) $((8000 + 2000 * i)) && echo
      port $dag HMB_input p$((2 * i + 1)) $((40000 + 1000 * i)) && echo
      port $dag HMB_output p$((2 * i + 2)) $((10000 + 2000 * i)) && echo
      printf '#endif\n'
    } >in/$dag.h
  done
}
