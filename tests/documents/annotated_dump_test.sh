# The dump in the document of the format shows the package that the tool makes from the folder examples/tiny/.
source "$SOURCE/tests/documents/test_folder.sh"

document=$SOURCE/docs/package_format.md

morvane_gen -d "$SOURCE/examples/tiny" -f tiny.bin -c >printed
echo "Save to file tiny.bin with file size $(stat -c %s tiny.bin)." | same "the size" - <(head -n 1 printed)

sed -n '/^```dump$/,/^```$/p' "$document" | sed '1d;$d' >shown
annotated_dump tiny.bin >made
same "the dump in $document" made shown

# The bytes alone, read without any program that knows the records.
sed -n 's/^0x[0-9a-f]*  \(\(\(00\*[0-9]\{1,\}\|[0-9a-f][0-9a-f]\) \)*\) .*/\1/p' shown |
  awk '{
    for (i = 1; i <= NF; ++i) {
      times = split($i, part, "*") == 2 ? part[2] : 1
      while (times-- > 0) { print part[1] }
    }
  }' >shown_bytes
od -An -v -tx1 -w1 tiny.bin | tr -d ' ' >bytes
same "the bytes in $document" bytes shown_bytes
