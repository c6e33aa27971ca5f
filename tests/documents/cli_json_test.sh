# The JSON that morvane writes fits the schemas that are installed with it, and its SARIF fits the published
# schema: for sound, damaged and unreadable packages and for names that are neither text nor UTF-8.
source "$SOURCE/tests/documents/test_folder.sh"
source "$SOURCE/tests/documents/sample_packages.sh"
source "$SOURCE/tests/node/packages.sh"

# fits SCHEMA DOCUMENT ...
fits() {
  run_node documents/validate_json.js "$@"
}

size=$(stat -c %s vproc.bin)
head -c 5 vproc.bin >header_cut.bin
head -c $((size / 2)) vproc.bin >cut.bin
head -c $((size - 1)) vproc.bin >smbs_cut.bin
cat vproc.bin <(printf x) >longer.bin
printf '\6\0\1\2\0\0\0\0\0\0\0\0' >no_dvis.bin
# Not UTF-8, a quote, a control character and a backslash at the start of the first DAG name.
cp vproc.bin hostile.bin
printf '\377"\1\\' | dd of=hostile.bin bs=1 seek=40 conv=notrunc status=none
odd=$(printf 'a b%%:\377.bin')
cp vproc.bin "$odd"
files=(plain.bin vproc.bin header_cut.bin cut.bin smbs_cut.bin longer.bin no_dvis.bin hostile.bin "$odd")

number=0
for file in "${files[@]}"; do
  number=$((number + 1))
  status=0
  morvane show --json --quiet "$file" >shown_$number.json || status=$?
  [ $status -le 1 ] || fail "morvane show $file ends with $status"
  morvane show --json --digest --quiet "$file" >digests_$number.json || [ $? -eq $status ]
  options=$(sed -n ${number}p <<<"--notes
--notes --require-vproc
--forbid-vproc")
  # shellcheck disable=SC2086
  morvane check $options --format json "${files[@]}" missing.bin >check_$number.json 2>reasons || [ $? -eq 2 ]
  # shellcheck disable=SC2086
  morvane check $options --format sarif "${files[@]}" missing.bin >check_$number.sarif 2>reasons || [ $? -eq 2 ]
done
number=0
# One DAG less, and the other two in turn; a byte behind the NUL of a DAG name; reserved bytes of a port.
mkdir turned
cp "$sample/_wake_word_split_0.h" turned/_net_split_1.h
cp "$sample/wake_word_split_0.dvi" turned/net_split_1.dvi
cp "$sample/_wake_word_split_1.h" turned/_net_split_0.h
cp "$sample/wake_word_split_1.dvi" turned/net_split_0.dvi
morvane_gen -d turned -f turned.bin >/dev/null
cp vproc.bin hidden.bin
printf x | dd of=hidden.bin bs=1 seek=140 conv=notrunc status=none
cp vproc.bin reserved.bin
printf x | dd of=reserved.bin bs=1 seek=502 conv=notrunc status=none
for old in plain.bin vproc.bin cut.bin hostile.bin; do
  for new in "${files[@]}" turned.bin hidden.bin reserved.bin; do
    number=$((number + 1))
    morvane diff --json --quiet "$old" "$new" >differences_$number.json || [ $? -eq 1 ]
  done
done
for change in appeared vanished moved field after_nul bytes; do
  grep -q "\"change\": \"$change\"" differences_*.json || fail "no difference is of the kind $change"
done
mkdir lint_folder
printf 'image' >lint_folder/net.dvi
printf '#define net_DAG_NAME "\377\1"\n#define net_data_W 0x10\n' >lint_folder/net.h
number=0
for folder in "$SOURCE/examples/wake_word" "$SOURCE/examples/mistakes" lint_folder "$PWD" missing; do
  number=$((number + 1))
  for format in json sarif; do
    morvane lint --notes --vproc --format $format "$folder" >check_lint_$number.$format 2>reasons || [ $? -le 2 ]
  done
done
fits "$SOURCE/docs/package.schema.json" "$PWD"/{shown,digests}_*.json || fail "the JSON of show"
fits "$SOURCE/docs/findings.schema.json" "$PWD"/check_*.json || fail "the JSON of check and lint"
fits "$SOURCE/docs/differences.schema.json" "$PWD"/differences_*.json || fail "the JSON of diff"
fits sarif "$PWD"/check_*.sarif || fail "the SARIF of check and lint"

# The validator does see what is wrong.
sed 's/"claimed": [0-9]*/"claimed": "much"/' <(morvane show --json -q cut.bin) >bad.json
! fits "$SOURCE/docs/package.schema.json" "$PWD/bad.json" 2>found || fail "a text passes as a number"
sed 's/"change": "[a-z]*"/"change": "other"/' differences_2.json >bad.json
! fits "$SOURCE/docs/differences.schema.json" "$PWD/bad.json" 2>found || fail "an unknown change passes"
sed 's/"severity": "error"/"severity": "fatal"/' check_1.json >bad.json
! fits "$SOURCE/docs/findings.schema.json" "$PWD/bad.json" 2>found || fail "a severity that does not exist passes"
sed 's/"level": "error", "message"/"level": "fatal", "message"/' check_1.sarif >bad.json
! fits sarif "$PWD/bad.json" 2>found || fail "a level that does not exist passes"
