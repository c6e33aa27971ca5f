# The record tables in the document of the format have the fields, offsets and sizes of the public header.
source "$SOURCE/tests/documents/test_folder.sh"

header=$SOURCE/src/format/include/morvane/package_format.h
document=$SOURCE/docs/package_format.md

sed -n -e 's/^MORVANE_SIZE_IS(morvane_\(.*\), \(.*\));/\1 \2/p' \
  -e 's/^MORVANE_STANDS_AT(morvane_\(.*\), \(.*\), \(.*\));/\1.\2 \3/p' "$header" >asserted
# "### `port_desc`, 1080 bytes" begins a table with rows "| 16 | u32 | `pitch` | ...".
awk -F ' *[|] *' '
  /^### `[a-z_]*`, [0-9]* bytes/ { split($0, part, /[`, ]+/); record = part[2]; print record, part[3] }
  record != "" && $2 ~ /^[0-9]+$/ { gsub("`", "", $4); print record "." $4, $2 }
' "$document" >tables
[ "$(wc -l <tables)" -gt 40 ] || fail "too few fields in $document"
same "the records" asserted tables
