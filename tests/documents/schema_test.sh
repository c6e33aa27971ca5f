# The schema, compiled to JavaScript, reads the sample package without and with vproc records, and finds what
# the report shows. The argument is the folder of the node packages, which are fetched once.
source "$SOURCE/tests/documents/test_folder.sh"
source "$SOURCE/tests/documents/sample_packages.sh"

tests=$SOURCE/tests/documents/schema
packages=$1

mkdir -p "$packages"
if ! cmp -s "$tests/package-lock.json" "$packages/node_modules/fetched-package-lock.json"; then
  cp "$tests/package.json" "$tests/package-lock.json" "$packages"
  npm ci --prefix "$packages" --no-audit --no-fund --ignore-scripts --fetch-retries 1 >npm.log 2>&1 ||
    skip "the node packages of $tests/package.json are missing and cannot be fetched"
  cp "$tests/package-lock.json" "$packages/node_modules/fetched-package-lock.json"
fi

for section in plain vproc; do
  (cd "$packages" && node "$tests/report.js" "$SOURCE/docs/package.ksy" "$scratch/$section.bin" $section \
    "$sample") >found
  same "the $section report" $section.report found
done
