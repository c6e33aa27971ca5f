# The schema, compiled to JavaScript, reads the sample package without and with vproc records, and finds what
# the report shows. The argument is the folder of the node packages, which are fetched once.
source "$SOURCE/tests/documents/test_folder.sh"
source "$SOURCE/tests/documents/sample_packages.sh"
source "$SOURCE/tests/documents/node_packages.sh"

tests=$SOURCE/tests/documents/schema
packages=$1

fetch_packages "$tests" "$packages"

for section in plain vproc; do
  (cd "$packages" && node "$tests/report.js" "$SOURCE/docs/package.ksy" "$scratch/$section.bin" $section \
    "$sample") >found
  same "the $section report" $section.report found
done
