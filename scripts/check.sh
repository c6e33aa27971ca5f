#!/usr/bin/env bash
# check.sh [STEP ...]: everything a change must pass, or only the steps that are named: release, style, aarch64, asan,
# proof, tidy, coverage, package, memory. Two steps run at a time; after all of them, the suite as README.md runs it.
# A step fails when a test fails or is skipped. What it prints stays in build-check/, and is shown when it fails.
# Installs what is missing.
source "$(dirname "$0")/requirements.sh"

require_test
require clang-format clang-format cppcheck cppcheck git git

# What only later steps need. It is installed while the first two run.
require_the_rest() {
  require_every_test
  require_fuzz
  require_package
  require_proof
  require clang-tidy clang-tidy valgrind valgrind gcovr gcovr googletest /usr/src/googletest/CMakeLists.txt
}

sources() {
  # Headers that the tool reads are not ours.
  git ls-files -co --exclude-standard -- "$@" ':!*/_*.h' ':!tests/findings' ':!tests/fuzz/corpus'
}

# Tests that a build rules out for good say so: these words are in the reasons of tests that no sanitizer, no emulator
# and no memory checker can run.
ruled_out='sanitizer|emulator|run prefix'

# nothing_skipped BUILD: fails when the last run of ctest there skipped another test.
nothing_skipped() {
  local skipped
  skipped=$(awk -f tests/skipped_tests.awk "$1/Testing/Temporary/LastTest.log" | grep -v -E "$ruled_out" || :)
  [ -z "$skipped" ] || { printf '%s\n' "$skipped"; return 1; }
}

# suite PRESET: builds with warnings as errors and runs the tests.
suite() {
  cmake --preset "$1" -DMORVANE_WERROR=ON
  cmake --build --preset "$1"
  ctest --preset "$1"
  nothing_skipped "build-$1"
}

# The build that other steps, and the suite at the end, use. It begins as on a fresh machine: the demonstration builds
# all that is installed.
check_release() {
  cmake -B build -DCMAKE_BUILD_TYPE=Release -DBUILD_TESTING=OFF -DMORVANE_WERROR=ON
  cmake --build build --target clean
  scripts/demo.sh
  cmake --install build --prefix build-check/installed
  scripts/bench.sh --quick
  cmake -B build -DBUILD_TESTING=ON
  cmake --build build --parallel "$(nproc)"
}

check_style() {
  sources 'src/*.cpp' 'src/*.c' 'src/*.h' 'tests/*.cpp' 'tests/*.c' 'tests/*.h' 'examples/*.c' |
    xargs clang-format --dry-run --Werror
  cppcheck --enable=warning,performance,portability --std=c++20 --inline-suppr --error-exitcode=1 \
    --quiet -I src -I src/format/include src
}

check_aarch64() { suite aarch64; }
check_asan() { suite asan; }
check_proof() { scripts/prove.sh; }

# Each source and each header, of the tests too, includes what it needs: it compiles alone.
compile_alone() {
  local compile=(clang++ -std=c++20 -fsyntax-only -I src -I src/format/include -I src/view/include -I tests)
  sources 'src/*.cpp' | xargs -P "$(nproc)" -n 1 "${compile[@]}"
  # Twice: a header may be included again.
  sources 'src/*.h' 'tests/*.h' | xargs -P "$(nproc)" -I HEADER "${compile[@]}" -include HEADER -include HEADER \
    -x c++ /dev/null
}

# clang-tidy spends its time in the headers that the sources share, so it gets all sources of a program as one. This
# also shows that no two of them use a name for different things. Checks that follow paths look into these sources only
# if the path of the file that includes them has the word UnifiedSource.
check_tidy() {
  compile_alone
  cmake -B build-UnifiedSource -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_C_COMPILER=clang \
    -DCMAKE_UNITY_BUILD_BATCH_SIZE=0 -DBUILD_TESTING=OFF
  find build-UnifiedSource -name 'unity_*.cxx' |
    xargs -P "$(nproc)" -n 1 clang-tidy --quiet --checks=-bugprone-suspicious-include -p build-UnifiedSource
}

check_coverage() {
  scripts/coverage.sh
  nothing_skipped build-coverage
}

check_package() { scripts/package.sh build build-aarch64; }

# Every fuzz target for a short time, and the tests of the whole program under valgrind. To read the names of inlined
# functions would take a sixth of valgrind's time.
check_memory() {
  scripts/fuzz.sh 20
  export MORVANE_RUN_PREFIX="valgrind --quiet --read-inline-info=no --leak-check=full --errors-for-leak-kinds=all \
    --error-exitcode=99"
  ctest --test-dir build --label-regex end_to_end --output-on-failure --no-tests=error --parallel "$(nproc)"
  nothing_skipped build
}

declare -A running=()  # the step of each process
failed=no
# Every step has a process group of its own, which ends with this script.
set -m
trap 'for process in "${!running[@]}"; do kill -- "-$process"; done' EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

# start STEP: runs a step in the background.
start() {
  (
    TIMEFORMAT="%0R s, %0U s of processor time"
    time "check_$1" >"build-check/$1.log" 2>&1
  ) 2>"build-check/$1.time" &
  running[$!]=$1
}

# finish: waits for a step to end and tells how it ended.
finish() {
  local process status=0 step
  wait -n -p process "${!running[@]}" || status=$?
  step=${running[$process]}
  unset "running[$process]"
  echo
  if [ "$status" -eq 0 ]; then
    echo "== $step passed in $(<"build-check/$step.time")"
    tail -n 4 "build-check/$step.log"
  else
    echo "== $step failed and printed"
    cat "build-check/$step.log"
    failed=yes
  fi
}

finish_all() {
  while [ ${#running[@]} -gt 0 ]; do
    finish
  done
  [ $failed = no ] || exit 1
}

# runs STEP ...: whether one of the steps is running.
runs() {
  local step
  for step in "$@"; do
    [[ " ${running[*]} " != *" $step "* ]] || return 0
  done
  return 1
}

# must_wait STEP: two steps are running, or one whose build the step uses.
must_wait() {
  [ ${#running[@]} -lt 2 ] || return 0
  case $1 in
    package) runs release aarch64 ;;
    memory) runs release ;;
    *) return 1 ;;
  esac
}

mkdir -p build-check

chosen=("$@")
if [ $# -eq 0 ]; then
  start release
  start style
  # The slowest first, so that both lanes end together.
  chosen=(aarch64 asan proof tidy coverage package memory)
fi
require_the_rest
for step in "${chosen[@]}"; do
  while must_wait "$step"; do
    finish
  done
  [ $failed = no ] || break
  start "$step"
done
finish_all
[ $# -eq 0 ] || exit 0

echo
echo "== the suite (after $SECONDS s)"
scripts/test.sh
nothing_skipped build
