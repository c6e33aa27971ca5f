# A project that packs with morvane_add_package: Make and Ninja pack again when an input changes, and only then.
#
#     cmake_module_test.sh GENERATOR
source "$SOURCE/tests/documents/test_folder.sh"

generator=$1
morvane=$(command -v morvane)
copy_sample "$SOURCE/examples/wake_word" "out put"
cp -r "out put" own
cp -r "out put" no  # which CMake takes for false, where it is not asked whether it is empty
echo "not packed" >"out put/notes"
cat >CMakeLists.txt <<'PROJECT'
cmake_minimum_required(VERSION 3.25)
project(network NONE)
find_package(morvane REQUIRED)
morvane_add_package(TARGET net FOLDER "out put" PACKAGE net.bin VPROC)
morvane_add_package(TARGET no FOLDER no PACKAGE new/folder/no.bin)
morvane_add_package(TARGET own FOLDER own PACKAGE "${CMAKE_CURRENT_SOURCE_DIR}/own/own.bin")
PROJECT
cmake -B build -G "$generator" -Dmorvane_DIR="$SOURCE/cmake" -DMORVANE_PROGRAM="$morvane" >/dev/null

# expect_build PACKAGE made|left AFTER-WHAT
expect_build() {
  local before after
  before=$(stat -c %i "$1" 2>/dev/null || echo none)
  cmake --build build >log 2>&1 || { cat log; fail "the build failed after: $3"; }
  after=$(stat -c %i "$1")
  if [ "$2" = made ]; then
    [ "$before" != "$after" ] || fail "$1 was not made after: $3"
  else
    [ "$before" = "$after" ] || fail "$1 was made again after: $3"
  fi
}

expect_build build/net.bin made "nothing was there"
"$morvane" check --quiet --require-vproc build/net.bin || fail "net.bin is not sound"
"$morvane" check --quiet --forbid-vproc own/own.bin || fail "own.bin is not sound"
"$morvane" check --quiet build/new/folder/no.bin || fail "no.bin is not sound"
expect_build build/net.bin left "nothing"
expect_build own/own.bin left "nothing"
touch "out put/_wake_word_split_1.h" own/wake_word_split_0.dvi
expect_build build/net.bin made "a header was touched"
touch own/wake_word_split_0.dvi
expect_build own/own.bin made "an image was touched"
touch "out put/notes"
expect_build build/net.bin left "a file was touched that is not packed"
rm "out put/"*split_2*
expect_build build/net.bin made "a DAG was removed"
"$morvane" check build/net.bin | grep -q ": sound, 2 DVIs, " || fail "the removed DAG is still there"

# refused MESSAGE ARGUMENT ...: the arguments of morvane_add_package are no good.
refused() {
  sed '/^morvane_add_package/d' CMakeLists.txt >"refused.txt"
  mkdir -p refused
  { cat refused.txt; echo "morvane_add_package(${*:2})"; } >refused/CMakeLists.txt
  ! cmake -S refused -B refused/build -Dmorvane_DIR="$SOURCE/cmake" >log 2>&1 || fail "taken: ${*:2}"
  tr -s ' \n' ' ' <log >message
  grep -qF "$1" message || fail "$(<log)"
}

refused "morvane_add_package: unknown arguments OFF" TARGET net FOLDER out PACKAGE net.bin VPROC OFF
refused "morvane_add_package: FOLDER is missing" TARGET net PACKAGE net.bin
refused "morvane_add_package: PACKAGE is missing" TARGET net FOLDER out PACKAGE '""'
echo "$generator makes a package when an input changes, and only then"
