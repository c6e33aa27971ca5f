# The example loader is built from an installed library, with CMake and with make, and run on the sample
# package; for AArch64 too, under an emulator.
source "$SOURCE/tests/documents/test_folder.sh"

# install_library PREFIX [CMAKE_OPTION ...]
install_library() {
  cmake -S "$SOURCE" -B "$1-build" -DBUILD_TESTING=OFF "${@:2}" >log 2>&1 || fail "$(<log)"
  cmake --build "$1-build" --target morvane_view compress_changelog >log 2>&1 || fail "$(<log)"
  cmake --install "$1-build" --prefix "$1" --component view >log 2>&1 || fail "$(<log)"
}

morvane_gen -d "$SOURCE/examples/wake_word" -f net.bin -c >log

# loads COMMAND ...: the loader finds a DAG and its ports, and refuses what it should.
loads() {
  "$@" net.bin wake_word_split_2 wake_word_split_0 >found || fail "$* ends with $?"
  grep -q '^wake_word_split_2: 3083 bytes at 0x90002000$' found || fail "no image: $(<found)"
  grep -q '^wake_word_split_0: 2304 bytes at 0x90000000$' found || fail "no image: $(<found)"
  [ "$(grep -c '^  input ' found)" -eq 2 ] || fail "not two inputs: $(<found)"
  [ "$(grep -c '^  output ' found)" -eq 5 ] || fail "not five outputs: $(<found)"
  ! "$@" net.bin wake_word >found || fail "a name that no DAG has is found"
  [ "$(<found)" = "loader: wake_word: no DVI of that name" ] || fail "$(<found)"
  head -c 5000 net.bin >cut.bin
  ! "$@" cut.bin wake_word_split_0 >found || fail "a cut package is taken"
  grep -q '^loader: cut.bin: .* cut$' found || fail "$(<found)"
}

# The files that are copied into a loader's tree compile as they are.
copies_compile() {
  local copy=$1/share/doc/libmorvane-view-dev/copy
  cc -std=c99 -pedantic -Wall -Wextra -Werror -ffreestanding -nostdlib -I "$copy" -c -o copy.o \
    "$copy/package_view.c"
}

install_library "$scratch/host"
copies_compile host
copy_sample host/share/doc/libmorvane-view-dev/examples/loader with_cmake
cmake -S with_cmake -B with_cmake/build -DCMAKE_PREFIX_PATH="$scratch/host" >log 2>&1 || fail "$(<log)"
cmake --build with_cmake/build >log 2>&1 || fail "$(<log)"
loads with_cmake/build/loader

copy_sample "$SOURCE/examples/loader" with_make
export PKG_CONFIG_PATH
PKG_CONFIG_PATH=$(echo "$scratch"/host/lib/*/pkgconfig)
make -C with_make CFLAGS='-std=c99 -pedantic -Wall -Wextra -Werror' >log 2>&1 || fail "$(<log)"
loads with_make/loader

install_library "$scratch/arm64" --toolchain "$SOURCE/cmake/aarch64.cmake"
cmake -S with_cmake -B arm64-loader --toolchain "$SOURCE/cmake/aarch64.cmake" \
  -Dmorvane_view_DIR="$(echo "$scratch"/arm64/lib/*/cmake/morvane_view)" >log 2>&1 || fail "$(<log)"
cmake --build arm64-loader >log 2>&1 || fail "$(<log)"
loads qemu-aarch64 -L /usr/aarch64-linux-gnu arm64-loader/loader
