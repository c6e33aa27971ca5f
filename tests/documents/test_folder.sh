# Sourced by every test. Skips the test if a program is missing. Otherwise the test runs in a new folder, which
# is removed at the end. TEST is the name of the test, SOURCE the source folder, NEEDS the names of the programs.

set -euo pipefail
export LC_ALL=C

skip() {
  echo "the test $TEST is skipped: $*"
  exit 77
}

fail() {
  echo "failed: $*" >&2
  exit 1
}

for program in $NEEDS; do
  command -v "$program" >/dev/null || skip "$program is missing"
done

# A name that finds every path without quotes.
scratch=$(mktemp -d "${TMPDIR:-/tmp}/ş folder.XXXXXX")
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"

# copy_tree FROM TO: copies a source tree without its builds. The copy can be written, also when the tree cannot.
copy_tree() {
  mkdir "$2"
  tar -C "$1" --exclude='./build*' --exclude=./dist --exclude=./.git --mode=u+w -cf - . | tar -C "$2" -xf -
}

# copy_sample FROM TO: copies a folder of files, with the permissions of new ones.
copy_sample() {
  cp -r --no-preserve=mode "$1" "$2"
}

# same WHAT EXPECTED ACTUAL: two files must not differ.
same() {
  diff -u --label "expected: $1" "$2" --label "found: $1" "$3" || fail "$1"
}
