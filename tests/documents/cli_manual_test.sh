# The manual of morvane has no fault that mandoc sees, names every command and every option of each, and its
# examples run.
source "$SOURCE/tests/documents/test_folder.sh"

manual=$SOURCE/docs/morvane.1

# mandoc does not know of a manual that is not installed.
mandoc -Tlint -W all "$manual" | grep -v 'referenced manual not found: Xr morvane_gen 1' >faults || true
[ ! -s faults ] || fail "mandoc finds faults: $(<faults)"
mandoc -Tascii "$manual" | sed 's/.\x08//g' >page

morvane --help | sed -n '/^Commands:/,/^$/s/^  \([a-z]*\) .*/\1/p' >commands
[ "$(wc -l <commands)" -ge 2 ] || fail "too few commands in the help"
while read -r command; do
  grep -q "^   morvane $command\$" page || fail "the manual leaves out the command $command"
  morvane "$command" --help | grep -o '^  -[^ ]*' | tr -d ' ' | tr ',' '\n' >options
  [ "$(wc -l <options)" -ge 3 ] || fail "too few options in the help of $command"
  while read -r option; do
    grep -q -e "$option\b" page || fail "the manual leaves out $option of $command"
  done <options
done <commands

# The commands of the examples, in one shell, in a copy of the sample folder.
copy_sample "$SOURCE/examples/wake_word" out
sed -n '/^EXAMPLES/,/^[A-Z]/s/^ *\$ //p' page >examples
[ "$(wc -l <examples)" -ge 3 ] || fail "too few examples"
while read -r example; do
  bash -c "$example" >printed 2>&1 || fail "$example ends with $?: $(<printed)"
done <examples
