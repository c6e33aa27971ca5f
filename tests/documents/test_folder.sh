# Sourced by every test: skips the test where a program is missing, and otherwise runs it in a folder of its
# own, which is removed at the end. Given are SOURCE, the source folder, and NEEDS, names of programs.

set -euo pipefail
export LC_ALL=C

skip() {
  echo "skipped: $*"
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

# same WHAT EXPECTED ACTUAL: two files must not differ.
same() {
  diff -u --label "expected: $1" "$2" --label "found: $1" "$3" || fail "$1"
}
