#!/usr/bin/env bash
# Measures the tool against programs that only copy or only read, and prints one table.
#
#     scripts/bench.sh [--quick] [ROW ...]
#
# --quick     a smoke run with little data and few pairs; its figures mean nothing
# ROW         the rows to measure, all by default: 1 to 12, and those of morvane by name
# TMPDIR      where the scratch folder is made: it decides which file system is measured. A full run
#             needs 5 GiB there.
#
# The exit status is 0 whatever the figures are, and 1 when the tool's output is wrong.
source "$(dirname "$0")/requirements.sh"

pairs=7
megabytes=256 small_dags=10000 few_dags=3000 many_dags=30000 many_ports=200000 large_dags=1000 starts=200
rows=()
for argument in "$@"; do
  case $argument in
    --quick)
      pairs=3
      megabytes=8 small_dags=400 few_dags=120 many_dags=1200 many_ports=4000 large_dags=40 starts=20
      ;;
    [1-9] | 1[0-2] | check | checks | checkw | show | report | diff | extract | pack | packs | lint | lints | lintw)
      rows+=("$argument")
      ;;
    *)
      echo "usage: scripts/bench.sh [--quick] [ROW ...]" >&2
      exit 2
      ;;
  esac
done

fail() {
  echo "bench.sh: $*" >&2
  exit 1
}

# build FOLDER OPTION ...: a release build of the tool.
build() {
  if [ ! -e "$1/CMakeCache.txt" ]; then
    cmake -B "$@" -DBUILD_TESTING=OFF >/dev/null
  fi
  cmake --build "$1" --parallel "$(nproc)" --target shipped >/dev/null
}

require_build
build build
build build-static -DMORVANE_STATIC_RUNTIME=ON
tool=$PWD/build/morvane_gen
static_tool=$PWD/build-static/morvane_gen
morvane=$PWD/build/morvane
generator=$PWD/tests/bench/compiler_output.awk
view_bench=$PWD/tests/bench/package_view_bench.c
view_library=(-I "$PWD/src/view/include" -I "$PWD/src/format/include" "$PWD/build/libmorvane_view.a")

scratch=$(mktemp -d "${TMPDIR:-/tmp}/morvane_bench.XXXXXX")
trap 'rm -rf "$scratch"' EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM
c++ -std=c++20 -O2 -static -o "$scratch/stopwatch" tests/bench/stopwatch.cpp
cd "$scratch"
cc -std=c99 -O2 -o view_bench "$view_bench" "${view_library[@]}"

wanted() {
  local row
  [ ${#rows[@]} -gt 0 ] || return 0
  for row in "${rows[@]}"; do
    [ "$row" != "$1" ] || return 0
  done
  return 1
}

# measure TIMES STATUS OUTPUT COMMAND ...: sets microseconds and peak_kib. Both sides of a pair start
# alike: what an earlier run wrote is gone, and the disk is at rest.
measure() {
  local times=$1
  shift
  rm -rf out
  mkdir out
  sync -f .
  read -r microseconds peak_kib < <(./stopwatch "$1" "$2" "$times" "${@:3}") || fail "$3 failed"
}

# The commands of a row; each side is an array: STATUS OUTPUT COMMAND ...
ours=()
yardstick=()

# compare ROW WORKLOAD YARDSTICK GOAL [TIMES]: measures both sides in turn and prints the row.
compare() {
  local pair samples="" times=${5:-1} our_time our_peak=0
  for ((pair = 0; pair <= pairs; ++pair)); do
    measure "$times" "${ours[@]}"
    our_time=$microseconds
    our_peak=$((peak_kib > our_peak ? peak_kib : our_peak))
    measure "$times" "${yardstick[@]}"
    if ((pair > 0)); then  # the first pair warms up
      samples+="$our_time $microseconds"$'\n'
    fi
  done
  print_row "$1" "$2" "$3" "$4" "$times" "$our_peak" <<<"${samples%$'\n'}"
}

# print_row ROW WORKLOAD YARDSTICK GOAL TIMES PEAK: the pairs of times come on standard input.
print_row() {
  awk -v row="$1" -v workload="$2" -v yardstick="$3" -v goal="$4" -v times="$5" -v peak="$6" '
    function sort(list, count,    i, j, held) {
      for (i = 2; i <= count; ++i) {
        held = list[i]
        for (j = i - 1; j > 0 && list[j] > held; --j) list[j + 1] = list[j]
        list[j + 1] = held
      }
    }
    function median(list) { return (list[int((NR + 1) / 2)] + list[int(NR / 2) + 1]) / 2 }
    { ours[NR] = $1 / times / 1000; theirs[NR] = $2 / times / 1000; ratio[NR] = $1 / $2 }
    END {
      sort(ours, NR); sort(theirs, NR); sort(ratio, NR)
      printf "| %s | %-46s | %8.2f | %-34s | %8.2f | %5.2f (%.2f to %.2f) | %5.1f | %s |\n", row,
             workload, median(ours), yardstick, median(theirs), median(ratio), ratio[1], ratio[NR],
             peak / 1024, goal
    }'
}

note() {
  printf '| %s | %-46s | not measured: %s |\n' "$@"
}

# make_folder NAME VARIABLE=VALUE ...: a compiler output folder.
make_folder() {
  local variables=() variable
  mkdir "$1"
  for variable in "${@:2}"; do
    variables+=(-v "$variable")
  done
  awk -v folder="$1" "${variables[@]}" -f "$generator"
}

make_images() {
  local i
  make_folder images dags=4 ports=2 image_size=$((megabytes << 20)) headers_only=1
  for i in 0 1 2 3; do
    head -c "${megabytes}M" /dev/urandom >"images/net_split_$i.dvi"
  done
  images=(images/net_split_{0,1,2,3}.dvi)
}

# pack FOLDER PACKAGE SIZE [OPTION ...]: packs, and checks that the printed size and the size of the file are SIZE.
pack() {
  "$tool" -d "$1" -f "$2" "${@:4}" >report
  printf 'Save to file %s with file size %d.\n\n' "$2" "$3" | cmp -s - report || fail "packing $1: $(head -1 report)"
  [ "$(stat -c %s "$2")" -eq "$3" ] || fail "packing $1: the package has $(stat -c %s "$2") bytes"
}

# check_pack FOLDER SIZE [OPTION ...]: what the tool prints and writes is right, and the same twice.
check_pack() {
  pack "$1" first.bin "$2" "${@:3}"
  pack "$1" second.bin "$2" "${@:3}"
  cmp first.bin second.bin || fail "packing $1 twice gives two packages"
  rm first.bin second.bin
}

# package_size DAGS PORTS IMAGE_SIZE [VARIABLES SMBS]: the size of a package, with a vproc section
# when the last two are given.
package_size() {
  local size=$((12 + $1 * (156 + $2 * 1080 + $3)))
  echo $((size + ($# > 3 ? $1 * (12 + ${4:-0} * 136 + ${5:-0} * 132) : 0)))
}

row_1() {
  check_pack images "$(package_size 4 2 $((megabytes << 20)))"
  ours=(0 out/report "$tool" -d images -f out/net.bin)
  yardstick=(0 out/copy cat "${images[@]}")
  compare 1 "pack 4 images of $megabytes MiB" "cat of the images into a file" "1.0, 8 MiB"
}

row_2() {
  local image
  "$tool" -d images -f net.bin >report
  inspect net.bin 25
  for image in "${images[@]}"; do
    cmp "$image" "check/parse/${image##*/}" || fail "the extracted image differs"
  done
  rm -rf check
  ours=(1 out/report "$tool" -f net.bin -p out -v)
  yardstick=(0 out/copy cat net.bin)
  compare 2 "inspect that package" "cat of the package into a file" "1.0, 8 MiB"
  rm net.bin
}

row_9() {
  local peers=(tar cp mkimage mkbootimg) peer
  local list
  list=$(IFS=: && echo "${images[*]}")
  local tar=(0 out/report tar cf out/copy images)
  local cp=(0 out/report cp "${images[@]}" out)
  local mkimage=(0 out/report mkimage -A arm64 -T multi -C none -d "$list" out/copy)
  local mkbootimg=(0 out/report mkbootimg --header_version 2 --kernel "${images[0]}"
    --ramdisk "${images[1]}" --second "${images[2]}" --dtb "${images[3]}" -o out/copy)
  ours=(0 out/report "$tool" -d images -f out/net.bin)
  for peer in "${peers[@]}"; do
    if command -v "$peer" >/dev/null; then
      declare -n peer_command=$peer
      yardstick=("${peer_command[@]}")
      compare 9 "pack 4 images of $megabytes MiB" "$peer" "below 1"
    else
      note 9 "pack 4 images of $megabytes MiB" "no $peer here"
    fi
  done
}

row_3() {
  make_folder small dags="$small_dags" ports=2 image_size=100
  check_pack small "$(package_size "$small_dags" 2 100)"
  ours=(0 out/report "$tool" -d small -f out/net.bin)
  yardstick=(0 out/report tar cf out/copy small)
  compare 3 "pack $small_dags DAGs" "tar cf of the folder" "2.0"
  rm -rf small
}

row_4() {
  make_folder few dags="$few_dags" ports=2 image_size=100
  make_folder many dags="$many_dags" ports=2 image_size=100
  check_pack few "$(package_size "$few_dags" 2 100)"
  check_pack many "$(package_size "$many_dags" 2 100)"
  ours=(0 out/report "$tool" -d many -f out/net.bin)
  yardstick=(0 out/report "$tool" -d few -f out/net.bin)
  compare 4 "pack $many_dags DAGs" "itself, $few_dags DAGs" "11"
  rm -rf few many
}

row_5() {
  make_folder wide dags=1 ports="$many_ports" image_size=100
  check_pack wide "$(package_size 1 "$many_ports" 100)"
  ours=(0 out/report "$tool" -d wide -f out/net.bin)
  yardstick=(0 out/report grep -c HMB_ wide/_net_split_0.h)
  compare 5 "pack a header of $many_ports ports" "grep -c HMB_" "9"
  rm -rf wide
}

row_6() {
  make_folder large dags="$large_dags" ports=100 image_size=100
  pack large net.bin "$(package_size "$large_dags" 100 100)"
  # The header's line, the table between two empty lines, per DAG a heading, the ports and an empty
  # line, and the two lines at the end.
  inspect net.bin $((1 + 1 + large_dags + 1 + large_dags * 102 + 2))
  "$tool" -d check/parse -f again.bin >again
  cmp net.bin again.bin || fail "the parse folder makes another package"
  mv report large_report
  ours=(1 out/report "$tool" -f net.bin -p out -v)
  yardstick=(0 out/copy bash -c 'exec cat large_report check/parse/*.h')
  compare 6 "inspect $large_dags DAGs of 100 ports" "cat of the report and the headers" "3"
  rm -rf large check net.bin again.bin
}

row_7() {
  make_folder vproc dags="$large_dags" ports=20 image_size=100 variables=200 smbs=50
  check_pack vproc "$(package_size "$large_dags" 20 100)"
  check_pack vproc "$(package_size "$large_dags" 20 100 200 50)" -c
  ours=(0 out/report "$tool" -d vproc -f out/net.bin -c)
  yardstick=(0 out/report "$tool" -d vproc -f out/net.bin)
  compare 7 "pack $large_dags DAGs with -c, 200 variables, 50 SMBs" "without -c" "1.6"
  rm -rf vproc
}

row_8() {
  local program
  yardstick=(0 out/report /bin/true)
  for program in "$static_tool" "$tool"; do
    [ "$("$program" --version || :)" = "version 2.1.6 ( HASH b3b3814 )" ] ||
      fail "--version says otherwise"
    ours=(1 out/report "$program" --version)
    if [ "$program" = "$static_tool" ]; then
      compare 8 "--version, runtime linked statically" "/bin/true" "1.2" "$starts"
    else
      compare 8 "--version" "/bin/true" "2.0" "$starts"
    fi
  done
}

# pack_images: packs the large images into net.bin.
pack_images() {
  "$tool" -d images -f net.bin >report
}

row_diff() {
  pack_images
  cp net.bin copy.bin
  "$morvane" diff net.bin copy.bin >report || fail "equal packages differ"
  ours=(0 out/report "$morvane" diff net.bin copy.bin)
  yardstick=(0 out/report cmp net.bin copy.bin)
  compare diff "compare two equal packages of $((4 * megabytes)) MiB" "cmp" "1.0"
  rm net.bin copy.bin
}

row_pack() {
  "$morvane" pack images -o net.bin --no-sync --quiet
  "$tool" -d images -f copy.bin >report
  cmp net.bin copy.bin || fail "the two programs write different packages"
  rm net.bin copy.bin
  ours=(0 out/report "$morvane" pack images -o out/net.bin --no-sync)
  yardstick=(0 out/report "$tool" -d images -f out/net.bin)
  compare pack "morvane pack, 4 images of $megabytes MiB" "morvane_gen" "2.0, 16 MiB"
}

row_packs() {
  make_folder small dags="$small_dags" ports=2 image_size=100
  ours=(0 out/report "$morvane" pack small -o out/net.bin --no-sync)
  yardstick=(0 out/report "$tool" -d small -f out/net.bin)
  compare packs "morvane pack, $small_dags DAGs" "morvane_gen" "2.5"
  rm -rf small
}

# check_lint FOLDER: the linter finds nothing in it.
check_lint() {
  "$morvane" lint --quiet --werror "$1" >report || fail "linting $1: $(head -1 report)"
}

row_lint() {
  make_folder small dags="$small_dags" ports=2 image_size=300
  check_lint small
  ours=(0 out/report "$morvane" lint small)
  yardstick=(0 out/report "$tool" -d small -f out/net.bin)
  compare lint "lint $small_dags DAGs" "morvane_gen packs them" "2.0"
  rm -rf small
}

row_lints() {
  make_folder few dags="$few_dags" ports=2 image_size=300
  make_folder many dags="$many_dags" ports=2 image_size=300
  check_lint many
  ours=(0 out/report "$morvane" lint many)
  yardstick=(0 out/report "$morvane" lint few)
  compare lints "lint $many_dags DAGs" "itself, $few_dags DAGs" "11"
  rm -rf few many
}

row_lintw() {
  make_folder wide dags=1 ports="$many_ports" image_size=300
  check_lint wide
  ours=(0 out/report "$morvane" lint wide)
  yardstick=(0 out/report "$tool" -d wide -f out/net.bin)
  compare lintw "lint a header of $many_ports ports" "morvane_gen packs it" "2.0"
  rm -rf wide
}

row_extract() {
  pack_images
  "$morvane" extract -o - net.bin net_split_1 | cmp - "${images[1]}" || fail "the image differs"
  ours=(0 out/copy "$morvane" extract -o - net.bin net_split_1)
  yardstick=(0 out/copy cat "${images[1]}")
  compare extract "extract $megabytes MiB to standard output" "cat of the image into a file" "1.1"
  rm net.bin
}

# check_sound PACKAGE: morvane finds nothing in it.
check_sound() {
  "$morvane" check "$1" >report || fail "checking $1"
  [ "$(wc -l <report)" -eq 1 ] && grep -q ': sound, ' report || fail "checking $1: $(head -1 report)"
}

row_check() {
  "$tool" -d images -f net.bin >report
  check_sound net.bin
  ours=(0 out/report "$morvane" check net.bin)
  yardstick=(0 out/report "$morvane" --version)
  compare check "check 4 images of $megabytes MiB" "morvane --version" "1.3" "$starts"
  rm net.bin
}

row_checks() {
  # Images that reach to the address of the DAG binary.
  make_folder small dags="$small_dags" ports=2 image_size=300
  pack small net.bin "$(package_size "$small_dags" 2 300)"
  check_sound net.bin
  ours=(0 out/report "$morvane" check net.bin)
  yardstick=(0 /dev/null cat net.bin)
  compare checks "check $small_dags DVIs" "cat of the package to /dev/null" "3.5" 10
  rm -rf small net.bin
}

row_checkw() {
  make_folder large dags="$large_dags" ports=100 image_size=300
  pack large net.bin "$(package_size "$large_dags" 100 300)"
  rm -rf large
  check_sound net.bin
  ours=(0 out/report "$morvane" check net.bin)
  yardstick=(0 out/report "$morvane" show --json net.bin)
  compare checkw "check $large_dags DVIs of 100 ports" "show --json" "1.0"
  rm -f net.bin
}

row_show() {
  make_folder large dags="$large_dags" ports=100 image_size=300
  pack large net.bin "$(package_size "$large_dags" 100 300)"
  rm -rf large
  "$morvane" show --json net.bin >shown
  [ "$(grep -c '"port_name"' shown)" -eq $((large_dags * 100)) ] || fail "show leaves out ports"
  rm shown
  ours=(0 out/report "$morvane" show --json net.bin)
  yardstick=(1 out/report "$tool" -f net.bin -p out -v)
  compare show "show --json $large_dags DVIs of 100 ports" "morvane_gen -v" "1.0, 16 MiB"
  rm -f net.bin
}

row_report() {
  make_folder large dags="$large_dags" ports=100 image_size=300
  pack large net.bin "$(package_size "$large_dags" 100 300)"
  rm -rf large
  "$morvane" report net.bin >page
  [ "$(grep -c '<tr><th scope="row"><i class=' page)" -eq $((large_dags * 100)) ] || fail "report leaves out ports"
  rm page
  ours=(0 out/report "$morvane" report net.bin)
  yardstick=(0 out/report "$morvane" show net.bin)
  compare report "report $large_dags DVIs of 100 ports" "show" "3.0"
  rm -f net.bin
}

row_10() {
  make_folder small dags="$small_dags" ports=2 image_size=100
  pack small net.bin "$(package_size "$small_dags" 2 100)"
  ours=(0 out/report ./view_bench open 1000 net.bin)
  yardstick=(0 out/report ./view_bench table 1000 net.bin)
  compare 10 "open a package of $small_dags DVIs 1000 times" "a loop over the words it reads" "2.0"
  rm -rf small net.bin
}

row_11() {
  local empty faults
  "$tool" -d images -f net.bin >report
  empty=$(./view_bench empty)
  faults=$(./view_bench faults net.bin)
  printf '| %s | %-46s | %8s faults | %-34s | %8s faults | %+d | | %s |\n' 11 \
    "open a mapped package of 4 x $megabytes MiB" "$faults" "an empty program" "$empty" \
    $((faults - empty)) "+16"
  rm net.bin
}

row_12() {
  make_folder large dags="$large_dags" ports=100 image_size=100
  pack large net.bin "$(package_size "$large_dags" 100 100)"
  ours=(0 out/report ./view_bench ports 20 net.bin)
  yardstick=(0 out/report ./view_bench port_bytes 20 net.bin)
  compare 12 "walk the ports of $large_dags DVIs of 100 ports 20 times" "a sum of the bytes it reads" "1.2"
  rm -rf large net.bin
}

# inspect PACKAGE LINES: inspects into check/parse and checks the length of the report.
inspect() {
  local lines
  rm -rf check
  mkdir check
  "$tool" -f "$1" -p check -v >report || [ $? -eq 1 ] || fail "inspecting $1"
  lines=$(wc -l <report)
  [ "$lines" -eq "$2" ] || fail "the report has $lines lines, not $2"
}

# run_row ROW: measures a row. The rows of morvane have names instead of numbers.
run_row() {
  if [[ $1 == [0-9]* ]] || [ -x "$morvane" ]; then
    "row_$1"
  else
    note "$1" "morvane $1" "morvane is not built here"
  fi
}

echo "Times in ms and ratios are medians of $pairs pairs, in brackets the least and the greatest ratio."
echo "| # | workload | ms | yardstick | ms | ratio | peak MiB | goal |"
echo "|---|---|---|---|---|---|---|---|"
for row in 1 2 9 11 check diff extract pack; do
  if wanted "$row"; then
    [ -d images ] || make_images
    run_row "$row"
  fi
done
rm -rf images
for row in 3 4 5 6 7 8 10 12 checks checkw show report packs lint lints lintw; do
  if wanted "$row"; then
    run_row "$row"
  fi
done
