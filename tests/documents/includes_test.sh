# The table of folders in architecture.md says which folders each folder of src/ includes headers of, and all of them
# come further down: no include goes up.
source "$SOURCE/tests/documents/test_folder.sh"

# "FOLDER INCLUDED" for each row of the table, and the order of the rows.
awk -F'|' '$2 ~ /^ `[a-z_\/]+\/` $/ {
  gsub(/[ `]/, ""); sub(/\/$/, "", $2); print $2 >"rows"
  count = split($4, names, ",")
  for (i = 1; i <= count; ++i) { sub(/\/$/, "", names[i]); if (names[i] != "") print $2, names[i] }
}' "$SOURCE/docs/architecture.md" | sort >told
[ "$(wc -l <rows)" -ge 20 ] || fail "the table of folders is not found"

cd "$SOURCE/src"
find . \( -name '*.cpp' -o -name '*.c' -o -name '*.h' \) | while read -r file; do
  folder=$(dirname "${file#./}")
  folder=${folder%/include/morvane}
  {
    sed -n 's/^#include "\(.*\)\/[^/]*"$/\1/p' "$file"
    sed -n 's/^#include <morvane\/package_\([a-z]*\).h>$/\1/p' "$file"
  } | sed "/^${folder//\//\\/}$/d; s/^/${folder//\//\\/} /"
done | sort -u >"$scratch/found"
find . -type f ! -name '*.map' | sed 's,^\./,,; s,/[^/]*$,,; s,/include/morvane$,,' | sort -u >"$scratch/folders"
cd "$scratch"

same "the folders" folders <(sort rows)
same "what each folder includes" found told
while read -r folder included; do
  [ "$(grep -n -x "$folder" rows | cut -d: -f1)" -lt "$(grep -n -x "$included" rows | cut -d: -f1)" ] ||
    fail "$folder includes headers of $included, which is not below it"
done <found
