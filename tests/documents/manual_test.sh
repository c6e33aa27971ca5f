# mandoc finds no fault in the manual, every option of the usage text is in it, and its examples run.
source "$SOURCE/tests/documents/test_folder.sh"

manual=$SOURCE/docs/morvane_gen.1

# mandoc does not know of a manual that is not installed.
mandoc -Tlint -W all "$manual" | grep -v 'referenced manual not found: Xr morvane 1' >faults || true
[ ! -s faults ] || fail "mandoc finds faults: $(<faults)"
mandoc -Tascii "$manual" | sed 's/.\x08//g' >page

morvane_gen --help >usage || [ $? -eq 1 ]
grep -o -e ' -[a-z] ' -e ' --[a-z]*' usage | sort -u >options
[ "$(wc -l <options)" -eq 13 ] || fail "$(wc -l <options) options in the usage text"
while read -r option; do
  grep -q -e "$option" page || fail "the manual leaves out $option"
done <options

# Runs the commands of the examples in a copy of the sample folder.
copy_sample "$SOURCE/examples/wake_word" out
sed -n '/^EXAMPLES/,/^[A-Z]/s/^ *\$ //p' page >commands
[ "$(wc -l <commands)" -ge 3 ] || fail "too few examples"
while read -r command; do
  status=0
  bash -c "$command" >printed || status=$?
  # An inspection ends with 1.
  [ $status -eq 0 ] || [ $status -eq 1 ] || fail "$command ends with $status"
  ! grep -q '^error\|^Usage' printed || fail "$command prints $(<printed)"
done <commands

cmp net.bin again.bin || fail "the regenerated folder packs to something else"
