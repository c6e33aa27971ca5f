# On AArch64 and on a big-endian machine, under emulators, everything is read as on this host: in the sample
# packages, and in what is left of them when they are cut or damaged.
source "$SOURCE/tests/documents/test_folder.sh"
source "$SOURCE/tests/documents/sample_packages.sh"

packages=(plain.bin vproc.bin)
for size in 0 11 12 479 480 10000 25000 25378; do
  head -c $size vproc.bin >cut_$size.bin
  packages+=(cut_$size.bin)
done
for offset in 8 9 20 28 32 36 200 17000 24600; do
  cp vproc.bin changed_$offset.bin
  printf '\xa5' | dd of=changed_$offset.bin bs=1 seek=$offset conv=notrunc status=none
  packages+=(changed_$offset.bin)
done

# report COMPILER EMULATOR: what a reader built by a compiler prints.
report() {
  $1 -std=c99 -pedantic -Wall -Werror -O2 -static -I "$SOURCE/src/view/include" \
    -I "$SOURCE/src/format/include" -I "$SOURCE/tests" -o reader "$SOURCE"/tests/view/view_report{,er}.c \
    "$SOURCE/src/view/package_view.c"
  $2 ./reader "${packages[@]}"
}

report cc "" >host
grep -q 'dag_name: wake_word_split_2' host || fail "the sample package is not read"
grep -q ' cut at ' host || fail "no damage is found"
report aarch64-linux-gnu-gcc qemu-aarch64 >aarch64
same "AArch64" host aarch64
report s390x-linux-gnu-gcc qemu-s390x >s390x
same "big-endian" host s390x
