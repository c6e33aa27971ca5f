# dot accepts the network of whatever package, and finds its nodes and edges.
source "$SOURCE/tests/documents/test_folder.sh"
source "$SOURCE/tests/report/pages.sh"

for kind in 3 30 empty bare hostile changed; do
  make_package $kind
  morvane report --dot $kind.bin -o $kind.dot
  dot -Tplain $kind.dot >$kind.plain 2>messages || fail "dot refuses the network of $kind.bin: $(<messages)"
  [ ! -s messages ] || fail "dot warns of the network of $kind.bin: $(<messages)"
done

grep -c '^node ' 3.plain >found
grep -c '^edge ' 3.plain >>found
# Three DVIs, an input from outside, two outputs to the outside, and two connections.
printf '6\n5\n' >expected
same "nodes and edges" expected found
