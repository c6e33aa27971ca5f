# The library compiles for machines without an operating system and with another byte order, calls nothing,
# and is small.
source "$SOURCE/tests/documents/test_folder.sh"

source=$SOURCE/src/view/package_view.c
includes=(-I "$SOURCE/src/view/include" -I "$SOURCE/src/format/include")
flags=(-std=c99 -pedantic -Wall -Wextra -Wconversion -Wshadow -Werror -ffreestanding -nostdlib)

# The only other headers are the two that every freestanding compiler has.
grep -h '^#include' "$source" "$SOURCE"/src/{view,format}/include/morvane/*.h | sort -u >found
printf '#include <%s>\n' morvane/package_format.h morvane/package_view.h stddef.h stdint.h >expected
same "headers" expected found

for target in x86_64-linux-gnu aarch64-linux-gnu arm-none-eabi s390x-linux-gnu; do
  for level in -Os -O2; do
    $target-gcc "${flags[@]}" $level "${includes[@]}" -c -o object.o "$source"
    [ -z "$($target-nm --undefined-only object.o)" ] || fail "$target $level calls $($target-nm -u object.o)"
    [ -z "$($target-nm object.o | grep -i ' [bcd] ')" ] || fail "$target $level has variables"
  done
done

# Code and constant data; no unwind tables, which a loader leaves out.
aarch64-linux-gnu-gcc "${flags[@]}" -Os -fno-asynchronous-unwind-tables "${includes[@]}" -c -o object.o "$source"
size=$(aarch64-linux-gnu-size object.o | awk 'NR == 2 { print $1 }')
echo "$size bytes on AArch64"
[ "$size" -le 4096 ] || fail "$size bytes on AArch64"
