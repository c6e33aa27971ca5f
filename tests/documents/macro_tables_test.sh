# The macro tables in the document of the headers contain every suffix of the tool with its field and its
# conversion, in the order in which suffixes are tried.
source "$SOURCE/tests/documents/test_folder.sh"

sed -n 's/^ *{"\(_[A-Za-z_]*\)", macro_kind::\([a-z_]*\), offsetof(\([a-z_]*\), \([A-Za-z_]*\)),.*/\1 \3.\4 \2/p' \
  "$SOURCE/src/format/macros.h" |
  sed -e 's/ word$/ u32/' -e 's/ byte$/ u8/' -e 's/ signed_byte$/ s8/' -e 's/ \(guarded_\)\?bit$/ bit/' \
    >known
# "## ... `port_desc`" begins a table with rows "| `_W` | `W` | u32 | ...".
awk -F ' *[|] *' '
  /^## / { record = $0; sub(/^[^`]*`/, "", record); sub(/`.*/, "", record) }
  $2 ~ /^`_/ { gsub("`", ""); split($4, conversion, ","); print $2, record "." $3, conversion[1] }
' "$SOURCE/docs/header_macros.md" >shown
[ "$(wc -l <known)" -gt 25 ] || fail "too few macros in macros.h"
same "the macros" known shown
