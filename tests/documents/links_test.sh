# Every link between the documents leads to a file, and the documents of the source tree name its folders. The
# argument is the folder of the documents, the source tree by default.
source "$SOURCE/tests/documents/test_folder.sh"

tree=${1:-$SOURCE}
[ -e "$tree/README.md" ] || fail "there is no README.md in $tree"
for document in "$tree"/*.md "$tree"/docs/*.md "$tree"/examples/*.md; do
  grep -o '](\(<[^>]*>\|[^)]*\))' "$document" | sed 's/^](//; s/)$//; s/#.*//' >links || true
  while read -r link; do
    case $link in
      '' | http://* | https://* | mailto:*) ;;
      *) [ -e "$(dirname "$document")/$link" ] || fail "$document links to $link" ;;
    esac
  done <links
done

for folder in "$SOURCE"/src/*/; do
  name=$(basename "$folder")/
  grep -q "\`$name\`\|\`src/$name\`" "$SOURCE/docs/architecture.md" || fail "architecture.md leaves out $name"
  grep -q "$name" "$SOURCE/docs/data_flow.dot" || fail "data_flow.dot leaves out $name"
done
