#!/usr/bin/env bash
# Everything a change must pass. Ends with the suite as README.md runs it; before that, two steps run at a time.
# What a step prints stays in build-check/, and is shown when it fails. Installs what is missing.
source "$(dirname "$0")/requirements.sh"

require_build
require libgtest-dev /usr/include/gtest/gtest.h clang-format clang-format cppcheck cppcheck git git

# What only later steps need. It is installed while the first build runs.
require_the_rest() {
  require_fuzz
  require_package
  require_proof
  require clang-tidy clang-tidy valgrind valgrind gcovr gcovr \
    qemu-user qemu-aarch64 googletest /usr/src/googletest/CMakeLists.txt
}

sources() {
  git ls-files -co --exclude-standard -- "$@"
}

check_format() {
  # Headers that the tool reads are not ours to format.
  sources 'src/*.cpp' 'src/*.c' 'src/*.h' 'tests/*.cpp' 'tests/*.c' 'tests/*.h' 'examples/*.c' ':!*/_*.h' \
    ':!tests/fuzz/corpus' |
    xargs clang-format --dry-run --Werror
}

check_cppcheck() {
  cppcheck --enable=warning,performance,portability --std=c++20 --inline-suppr --error-exitcode=1 \
    --quiet -I src -I src/format/include src
}

# The build of g++ without warnings is also measured, run under valgrind and tested at the end.
check_release() {
  cmake -B build -DCMAKE_BUILD_TYPE=Release -DBUILD_TESTING=ON -DMORVANE_WERROR=ON
  cmake --build build --parallel "$(nproc)"
}

# Whether morvane is built changes no byte of morvane_gen and its library.
check_same_bytes() {
  cmake -B build-core -DCMAKE_BUILD_TYPE=Release -DBUILD_TESTING=OFF -DMORVANE_COMPANION=OFF
  cmake --build build-core --parallel "$(nproc)" --target morvane_gen morvane
  cmp build-core/morvane_gen build/morvane_gen
  cmp build-core/libmorvane.so build/libmorvane.so
}

# clang-tidy spends its time in the headers that the sources share, so it gets many sources as one. Its checks that
# follow paths look into these sources only if the path of the file that includes them has the word UnifiedSource.
check_tidy() {
  cmake -B build-UnifiedSource -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_C_COMPILER=clang \
    -DCMAKE_UNITY_BUILD_BATCH_SIZE=32 -DBUILD_TESTING=OFF
  find build-UnifiedSource -name 'unity_*.cxx' |
    xargs -P "$(nproc)" -n 1 clang-tidy --quiet --checks=-bugprone-suspicious-include -p build-UnifiedSource
}

# compile_sources FOLDER OPTION ...: compiles the sources of both programs with clang.
compile_sources() {
  cmake -B "$1" -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_C_COMPILER=clang \
    -DCMAKE_CXX_FLAGS_DEBUG=-g0 -DBUILD_TESTING=OFF -DMORVANE_WERROR=ON "${@:2}"
  cmake --build "$1" --parallel "$(nproc)" --target morvane_core --target morvane_companion_core
}

# Each source file includes what it needs: it can be compiled alone.
check_alone() { compile_sources build-alone -DCMAKE_UNITY_BUILD=OFF; }

# No two files use a name for different things: any of them can be compiled as one.
check_together() { compile_sources build-together -DCMAKE_UNITY_BUILD_BATCH_SIZE=0; }

# suite PRESET: builds with warnings as errors and runs the tests.
suite() {
  cmake --preset "$1" -DMORVANE_WERROR=ON
  cmake --build --preset "$1"
  ctest --preset "$1"
}

check_asan() { suite asan; }
check_aarch64() { suite aarch64; }
check_coverage() { scripts/coverage.sh; }
check_fuzz() { scripts/fuzz.sh 20; }
check_package() { scripts/package.sh build build-aarch64; }
check_bench() { scripts/bench.sh --quick; }
check_proof() { scripts/prove.sh; }

# To read the names of inlined functions would take a sixth of the time.
check_valgrind() {
  export MORVANE_RUN_PREFIX="valgrind --quiet --read-inline-info=no --leak-check=full --errors-for-leak-kinds=all \
    --error-exitcode=99"
  ctest --test-dir build --label-regex end_to_end --output-on-failure --no-tests=error --parallel "$(nproc)"
}

declare -A running  # the step of each process
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

mkdir -p build-check

start format
start cppcheck
finish_all
start release
require_the_rest
finish_all

# The slowest first, so that both lanes end together. The packages are made of the build of the step aarch64, too.
for step in aarch64 asan proof tidy package coverage fuzz alone together same_bytes valgrind bench; do
  while [ ${#running[@]} -ge 2 ] || [[ $step = package && " ${running[*]} " = *" aarch64 "* ]]; do
    finish
  done
  [ $failed = no ] || break
  start $step
done
finish_all

echo
echo "== the suite (after $SECONDS s)"
scripts/test.sh
