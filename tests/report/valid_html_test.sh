# Pages are valid HTML 5, for whatever package, and their policy allows their style sheet and nothing else.
source "$SOURCE/tests/documents/test_folder.sh"
source "$SOURCE/tests/node/packages.sh"
source "$SOURCE/tests/documents/sample_packages.sh"
source "$SOURCE/tests/report/pages.sh"

for kind in 1 3 30 300 1000 empty bare hostile crowded changed; do
  make_package $kind
done
cut_package no_bytes 0
cut_package header_cut 7
cut_package table_cut 400
cut_package block_cut 20000
cut_package vproc_cut -1
cp vproc.bin sample.bin
names=(1 3 30 300 1000 empty bare hostile crowded no_bytes header_cut table_cut block_cut vproc_cut sample plain)
for name in "${names[@]}"; do
  make_page "$name"
done
make_page changed --against 30.bin

# valid PAGE ...
valid() {
  run_node report/validate_html.js "$@"
}
valid "$PWD"/*.html || fail "a page is not valid"

# The validator does see what is wrong.
sed 's,</h2>,</h3>,' sample.html >bad.html
! valid "$PWD/bad.html" 2>found || fail "a wrong end tag passes"
sed 's,</style>, </style>,' sample.html >bad.html
! valid "$PWD/bad.html" 2>found || fail "a style sheet that the policy forbids passes"
