# The public header compiles alone, as C and as C++, and does not compile with a field of another width.
source "$SOURCE/tests/documents/test_folder.sh"

header=$SOURCE/src/format/include/morvane/package_format.h

as_c=($CC -std=c99 -pedantic -Wall -Wextra -Werror -fsyntax-only -x c)
as_cxx=($CXX -std=c++11 -pedantic -Wall -Wextra -Werror -fsyntax-only -x c++)

"${as_c[@]}" "$header"
"${as_cxx[@]}" "$header"
"${as_cxx[@]}" -std=c++20 "$header"

# wider FIELD: writes the header with a field of twice the width to wider.h.
wider() {
  sed "s/uint32_t $1;/uint64_t $1;/" "$header" >wider.h
  ! cmp -s "$header" wider.h || fail "no field $1"
}

for field in dvi_num dvi_img_size pitch variable_num boffset vbase_byte_offset; do
  wider $field
  ! "${as_c[@]}" wider.h 2>/dev/null || fail "C accepts a wider $field"
  ! "${as_cxx[@]}" wider.h 2>/dev/null || fail "C++ accepts a wider $field"
done
