# The tables of values, numbers and file indices in the document of the headers agree with the tool.
source "$SOURCE/tests/documents/test_folder.sh"

document=$SOURCE/docs/header_macros.md

# table TITLE: the cells of the table with this first title, one row per line, separated by bars, without
# backquotes.
table() {
  sed -n "/^| $1 |/,/^\$/p" "$document" | sed '1,2d; /^$/d; s/^| //; s/ |$//; s/ | /|/g; s/`//g'
}

# pack_header HEADER: packs an empty DVI with this header and prints the report, one column per line.
pack_header() {
  rm -rf in
  mkdir in
  : >in/net.dvi
  cp "$1" in/net.h
  morvane_gen -d in -f net.bin >packed
  morvane_gen -f net.bin -v >report || [ $? -eq 1 ]
  tr '\t' '\n' <report
}

# Each text of the first column follows HMB_input, then the macro of a layer name.
table "After the macro's name" >values
[ "$(wc -l <values)" -eq 7 ] || fail "$(wc -l <values) rows of values"
echo '#define net_DAG_NAME net' >values.h
while IFS='|' read -r text value layer; do
  [[ $value = none:* ]] || printf 'port_name: %s\n' "$value" >>shown_names
  echo "HMB_input $text" >>values.h
  [[ $layer = none:* ]] || printf '(layer_name: %s)\n' "$layer" >>shown_layers
  echo "HMB_output row" >>values.h
  echo "net_row_qubrix_demangled_name $text" >>values.h
done <values
pack_header values.h >found
grep '^port_name' found | grep -v ': row$' | same "the values" shown_names -
grep '^(layer' found | same "the layer names" shown_layers -

# Each word of the first column is the value of a u32.
table Word >numbers
[ "$(wc -l <numbers)" -eq 6 ] || fail "$(wc -l <numbers) rows of numbers"
echo '#define net_DAG_NAME net' >numbers.h
while IFS='|' read -r word number why; do
  printf 'HMB_input row\nnet_row_dpitch_num_bytes %s\n' "$word" >>numbers.h
  printf 'pitch: %s\n' "$number" >>shown_numbers
done <numbers
pack_header numbers.h | grep '^pitch' | same "the numbers" shown_numbers -

# Each name of the first column is the name of a DVI. DVIs without an index make the number of DVIs fit its
# index; there is at least one.
table Name >names
[ "$(wc -l <names)" -eq 6 ] || fail "$(wc -l <names) rows of names"
while IFS='|' read -r list index; do
  [ "$index" = "left out" ] && index=none
  others=$([[ $index = [1-9]* ]] && echo "$index" || echo 1)
  for name in ${list//,/ }; do
    rm -rf in
    mkdir in
    for ((i = 0; i < others; ++i)); do
      : >in/other$i.dvi
      : >in/other$i.h
    done
    : >"in/$name"
    echo '#define x_DAG_NAME found' >"in/${name%.*}.h"
    morvane_gen -d in -f net.bin >packed || fail "$name: $(<packed)"
    morvane_gen -f net.bin -v >report || [ $? -eq 1 ]
    if [ "$index" = none ]; then
      grep -q "find file index for file $name\$" packed || fail "$name is not left out"
    else
      grep -q "^dvi_id: $((index & 255)) dag_name: found " report || fail "$name has not the index $index"
    fi
  done
done <names
