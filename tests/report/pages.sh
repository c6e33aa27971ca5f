# Sourced by tests: makes packages, and functions that make their pages.

# make_package KIND: makes KIND.bin, a kind of packages.js.
make_package() {
  node "$SOURCE/tests/report/packages.js" "$1" "$1.bin"
}

# cut_package NAME BYTES: makes NAME.bin of the first bytes of 3.bin; fewer than 0 leave out the last.
cut_package() {
  head -c "$2" 3.bin >"$1.bin"
}

# make_page NAME [OPTION ...]: makes NAME.html of NAME.bin, in a second run the same bytes.
make_page() {
  morvane report "$1.bin" -o "$1.html" "${@:2}" || fail "morvane report $1.bin ends with $?"
  morvane report "$1.bin" "${@:2}" | cmp - "$1.html" || fail "the page of $1.bin differs in a second run"
}
