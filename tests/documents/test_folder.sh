# Sourced by every test. Skips the test if a program is missing. Otherwise the test runs in a new folder, which
# is removed at the end. SOURCE is the source folder, NEEDS the names of the programs.

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
