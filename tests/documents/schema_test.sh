# The schema, compiled to JavaScript, reads the sample package without and with vproc records, and finds what
# the report shows.
source "$SOURCE/tests/documents/test_folder.sh"
source "$SOURCE/tests/documents/sample_packages.sh"
source "$SOURCE/tests/node/packages.sh"

for section in plain vproc; do
  run_node documents/schema_report.js "$SOURCE/docs/package.ksy" "$scratch/$section.bin" $section "$sample" >found
  same "the $section report" $section.report found
done
