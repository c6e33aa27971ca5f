# Sourced by tests: packs the sample folder without and with vproc records. Leaves each package as
# plain.bin or vproc.bin, and its report, without the closing message, as plain.report or vproc.report.

sample=$SOURCE/examples/wake_word

for section in plain vproc; do
  option=$([ $section = plain ] || echo -c)
  morvane_gen -d "$sample" -f $section.bin $option >/dev/null
  # An inspection ends with the status 1.
  morvane_gen -f $section.bin -v $option >whole.report || [ $? -eq 1 ]
  head -n -2 whole.report >$section.report
  grep -q 'dag_name: wake_word_split_2' $section.report
done
