# A loader in C that uses only the public header finds in a package what the report shows. It refuses a package
# that was cut, that has bytes left over, or whose counts are out of range.
source "$SOURCE/tests/documents/test_folder.sh"
source "$SOURCE/tests/documents/sample_packages.sh"

for section in plain vproc; do
  mkdir $section
  loader $section.bin $section >found
  same "the $section report" $section.report found
  for image in "$sample"/*.dvi; do
    cmp "$image" "$section/$(basename "$image")"
  done
done

# refuses REASON: the loader refuses damaged.bin for that reason.
refuses() {
  if loader damaged.bin >found; then
    fail "a damaged package is accepted"
  fi
  tail -n 1 found >reason
  [ "$(<reason)" = "loader: $1" ] || fail "$(<reason)"
}

# set_bytes OFFSET BYTES: writes the package with other bytes, given as \xHH, at an offset.
set_bytes() {
  cp vproc.bin damaged.bin
  printf "$2" | dd of=damaged.bin bs=1 seek="$1" conv=notrunc status=none
}

length=$(stat -c %s vproc.bin)
blocks_end=$(stat -c %s plain.bin)
for kept in 0 11 12 167 168 479 480 481 1559 1560 10000 $((blocks_end + 1)) $((length - 1)); do
  head -c "$kept" vproc.bin >damaged.bin
  refuses "the package ends early"
done

# No reader can find this cut.
head -c "$blocks_end" vproc.bin >cut.bin
loader cut.bin >found
same "the report of the cut package" plain.report found

(cat plain.bin; printf x) >damaged.bin
refuses "the package ends early"
(cat vproc.bin; printf x) >damaged.bin
refuses "the package goes on after its last record"

set_bytes 0 '\x07'              # version
refuses "the version is unknown"
set_bytes 8 '\xff\xff\xff\xff'  # dvi_num
refuses "the package ends early"
set_bytes 20 '\xff\xff\xff\xff' # dvi_img_size of DVI 0
refuses "the package ends early"
set_bytes 28 '\x76\xae\x3c\x00' # input_num of DVI 0: its ports take 1080 bytes more than 2^32
refuses "the package ends early"
set_bytes 36 '\x00'             # dvi_pkg_size of DVI 0
refuses "a block is not as long as its DVI says"
