# The documents of an installed tool: their links lead to files, and their commands print what is shown. The
# argument is the prefix; without it the build is installed.
source "$SOURCE/tests/documents/test_folder.sh"

if [ $# -eq 0 ]; then
  cmake --install "$BUILD" --prefix prefix >log 2>&1 || fail "$(<log)"
  set -- prefix
fi
prefix=$(realpath "$1")
documents=$prefix/share/doc/morvane-gen
export PATH=$prefix/bin:$PATH
bash "$SOURCE/tests/documents/links_test.sh" "$documents"
bash "$SOURCE/tests/documents/shown_output_test.sh" "$documents"
