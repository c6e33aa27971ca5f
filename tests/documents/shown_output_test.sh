# The commands in the documents print what the documents show. In a block ```console a line that begins with
# "$ " is a command. The lines up to the next command are its output. The commands of a document run in one
# shell, one after the other, in a copy of the folder of the documents. The argument names that folder; the
# default is the source tree.
source "$SOURCE/tests/documents/test_folder.sh"

tree=${1:-$SOURCE}

# Runs the commands of a file as if they were typed, each after its prompt.
run_commands() {
  set +eu
  status=0
  while IFS= read -r command <&3; do
    printf '$ %s\n' "$command"
    (exit $status)
    eval "$command" 2>&1 3<&-
    status=$?
  done 3<"$1"
}

[ -e "$tree/README.md" ] || fail "there is no README.md"
for document in "$tree"/*.md "$tree"/docs/*.md; do
  name=${document#"$tree"/}
  sed -n '/^```console$/,/^```$/p' "$document" | grep -v '^```' >shown || true
  sed -n 's/^\$ //p' shown >commands
  if [ ! -s commands ]; then
    [ "$name" != README.md ] || fail "README.md shows nothing"
    continue
  fi
  rm -rf copy
  copy_tree "$tree" copy
  (cd copy && run_commands ../commands) >printed </dev/null
  same "$name" shown printed
done
