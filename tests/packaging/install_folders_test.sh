# The folders of an installation can be chosen on the command line, with and without a type, relative and absolute.
source "$SOURCE/tests/documents/test_folder.sh"

# configure FOLDER OPTION ...
configure() {
  cmake -S "$SOURCE" -B "$1" -DBUILD_TESTING=OFF "${@:2}" >"$1.log" 2>&1 || fail "$(<"$1.log")"
}

# expect_pkg_config FOLDER PREFIX INCLUDEDIR LIBDIR
expect_pkg_config() {
  printf 'prefix=%s\nincludedir=%s\nlibdir=%s\n' "${@:2}" >expected
  head -n 3 "$1/morvane-view.pc" >found
  same "folders in morvane-view.pc of $1" expected found
}

for type in "" :PATH :STRING; do
  configure relative$type -DCMAKE_INSTALL_LIBDIR$type=lib64 -DCMAKE_INSTALL_DOCDIR$type=share/doc/tool
  [ "$(readlink relative$type/link/morvane_gen)" = ../lib64/morvane-gen/morvane_gen ] ||
    fail "the link leads to $(readlink relative$type/link/morvane_gen)"
  grep -q '^CMAKE_INSTALL_DOCDIR:[A-Z]*=share/doc/tool$' relative$type/CMakeCache.txt ||
    fail "documents go to $(grep '^CMAKE_INSTALL_DOCDIR:' relative$type/CMakeCache.txt)"
  expect_pkg_config relative$type '${pcfiledir}/../../' '${prefix}/include' '${prefix}/lib64'
done

configure absolute -DCMAKE_INSTALL_PREFIX=/opt/tool -DCMAKE_INSTALL_LIBDIR=/opt/libraries
expect_pkg_config absolute /opt/tool '${prefix}/include' /opt/libraries
