# Pages in a real browser: see browser.js.
source "$SOURCE/tests/documents/test_folder.sh"
source "$SOURCE/tests/node/packages.sh"
source "$SOURCE/tests/documents/sample_packages.sh"
source "$SOURCE/tests/report/pages.sh"

for font in dejavu liberation; do
  [ -d /usr/share/fonts/truetype/$font ] || skip "the fonts of $font are missing"
done

for kind in 3 300 empty hostile crowded changed 30; do
  make_package $kind
done
cut_package block_cut 20000
cp vproc.bin sample.bin
for name in sample empty hostile crowded block_cut 300; do
  make_page $name
done
make_page changed --against 30.bin

# looks_right PAGE ...
looks_right() {
  run_node report/browser.js "$(command -v chromium)" "$@"
}
looks_right "$PWD"/{sample,empty,hostile,crowded,block_cut,300,changed}.html || fail "a page does not look right"

# The browser does see what is wrong.
sed 's,<h1>,<h1><img src="http://127.0.0.1:9/" alt=""><script>console.log(1)</script>,' empty.html >bad.html
! looks_right "$PWD/bad.html" 2>found || fail "a script and an image pass"
grep -q 'console: ' found || fail "no message about the policy: $(<found)"
