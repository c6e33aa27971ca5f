# After the demonstration on a fresh copy of the tree, everything that is installed has been built.
source "$SOURCE/tests/documents/test_folder.sh"

copy_tree "$SOURCE" tree
tree/scripts/demo.sh >log 2>&1 || fail "$(<log)"
cmake --install tree/build --prefix prefix >log 2>&1 || fail "$(<log)"
prefix/bin/morvane_gen --version >version || [ $? -eq 1 ]
grep -q '^version 2\.1\.6' version || fail "the installed tool does not start"
