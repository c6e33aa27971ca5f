# The document of the findings has an entry for each code that the programs know, in their order, under the
# heading of its severity, with its meaning and an example. The examples are printed by the cases of tests/findings/.
source "$SOURCE/tests/documents/test_folder.sh"

# finding_kind{"code", severity::error, "Meaning."}, also over several lines.
tr -s ' \n' ' ' <"$SOURCE/src/cli/findings/findings.h" | sed 's/finding_kind{ /finding_kind{/g' |
  grep -o 'finding_kind{"[a-z0-9-]*", severity::[a-z]*, "[^"]*"}' |
  sed 's/finding_kind{"\(.*\)", severity::\(.*\), "\(.*\)"}/\2 \1 \3/' >known
# "## Errors" begins a severity, "### `code`" an entry; its first paragraph is the meaning.
awk '
  /^## / { severity = tolower(substr($2, 1, length($2) - 1)) }
  /^### / { code = $2; gsub("`", "", code); meaning = ""; told = 0; next }
  code != "" && !told && $0 != "" { meaning = meaning (meaning == "" ? "" : " ") $0 }
  code != "" && !told && $0 == "" && meaning != "" { print severity, code, meaning; told = 1 }
' "$SOURCE/docs/findings.md" >shown
[ "$(wc -l <known)" -eq "$(grep -c 'severity::[a-z]*,' "$SOURCE/src/cli/findings/findings.h")" ] ||
  fail "a row of findings.h is not understood"
same "the findings" known shown

# Every code, and nothing else, has cases.
find "$SOURCE/tests/findings" -mindepth 1 -maxdepth 1 -type d -printf '%f\n' | sort >with_cases
same "the codes with cases" <(cut -d' ' -f2 known | sort) with_cases

# The first example of an entry has its severity and its code, and something follows it. Every example is a line that
# a case of the code expects.
while read -r severity code rest; do
  sed -n "/^### \`$code\`\$/,/^##/p" "$SOURCE/docs/findings.md" >entry
  grep -q "^    [^ :]*:[0-9a-fx:]*: $severity: .* \[$code\]\$" entry || fail "no example of $code"
  find "$SOURCE/tests/findings/$code" -name expected -exec cat {} + >printed
  sed -n 's/^    //p' entry >examples
  ! grep -v -x -F -f printed examples || fail "an example of $code is not expected by a case"
  sed '1,/^    /d' entry | grep -q '^[A-Z`]' || fail "no advice on $code"
done <known
