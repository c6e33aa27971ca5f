# As a part of a parent project the tool is built, and nothing of the parent is touched: no tests, nothing
# installed, no packages, no cache variables. The argument is the generator.
source "$SOURCE/tests/documents/test_folder.sh"

parent=$SOURCE/tests/packaging/subproject
cmake -S "$parent" -B alone -G "$1" >log 2>&1 || fail "$(<log)"
cmake -S "$parent" -B with_tool -G "$1" -DTOOL="$SOURCE" >log 2>&1 || fail "$(<log)"
cmake --build with_tool --parallel 2 >log 2>&1 || fail "$(<log)"
grep -q 'version 2\.1\.6 ( HASH b3b3814 )' log || fail "the parent cannot start the tool"
# From any folder.
(cd / && "$scratch/with_tool/tool/morvane_gen" --version) >log 2>&1 || [ $? -eq 1 ] || fail "$(<log)"

ctest --test-dir with_tool --show-only >tests
grep -q '^Total Tests: 0$' tests || fail "the parent has tests of the tool"

cmake --install with_tool --prefix prefix >log
[ ! -e prefix ] || fail "the parent installs $(find prefix -type f)"

[ ! -e with_tool/CPackConfig.cmake ] || fail "the parent makes packages of the tool"
[ ! -e with_tool/compile_commands.json ] || fail "the parent exports compile commands"

# Every project leaves the folders of its own.
cache() {
  sed -n 's/^\([A-Za-z][^:]*\):[^=]*=.*/\1/p' "$1/CMakeCache.txt" |
    grep -v '^TOOL$\|^morvane_gen_\(BINARY_DIR\|IS_TOP_LEVEL\|SOURCE_DIR\)$\|^morvane_LIB_DEPENDS$' | sort
}
cache alone >expected
cache with_tool >found
same "the parent's cache variables" expected found
