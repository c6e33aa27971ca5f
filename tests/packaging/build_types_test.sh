# A build type is recognised in any case, and an unknown one is refused.
source "$SOURCE/tests/documents/test_folder.sh"

configure() {
  cmake -S "$SOURCE" -B "$1" -DBUILD_TESTING=OFF -DCMAKE_BUILD_TYPE="$1" >"$1.log" 2>&1
}

for type in Release release RELWITHDEBINFO; do
  configure $type || fail "$(<$type.log)"
  grep -q -e '-D_FORTIFY_SOURCE=2' $type/compile_commands.json || fail "$type is built without hardening"
done
configure debug || fail "$(<debug.log)"
! grep -q -e '-D_FORTIFY_SOURCE' debug/compile_commands.json || fail "debug is built as a release"

! configure Relaese || fail "the build type Relaese is taken"
grep -q 'CMAKE_BUILD_TYPE is Relaese; it must be one of Debug, Release,' Relaese.log || fail "$(<Relaese.log)"
