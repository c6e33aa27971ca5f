# The digests that morvane shows are those that xxhsum prints for the image files.
source "$SOURCE/tests/documents/test_folder.sh"

mkdir images
cp "$SOURCE"/examples/wake_word/* images
morvane_gen -d images -f net.bin >/dev/null
xxhsum -H2 images/*.dvi | cut -d ' ' -f 1 >printed
morvane show --digest net.bin | sed -n 's/^  xxh3_128: //p' >shown
[ "$(wc -l <shown)" -eq 3 ] || fail "not every image has a digest"
same "the digests" printed shown
morvane show --digest --json net.bin | grep -o '"xxh3_128": "[0-9a-f]*"' | cut -d '"' -f 4 >shown
same "the digests in JSON" printed shown
