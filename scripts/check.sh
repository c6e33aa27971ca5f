#!/usr/bin/env bash
# Everything a change must pass, in order; stops at the first failure. Installs what is missing.
source "$(dirname "$0")/requirements.sh"

require_fuzz
require clang-format clang-format clang-tidy clang-tidy cppcheck cppcheck valgrind valgrind gcovr gcovr \
  g++-aarch64-linux-gnu aarch64-linux-gnu-g++ qemu-user qemu-aarch64 \
  googletest /usr/src/googletest/CMakeLists.txt git git nodejs node npm npm

step() {
  echo
  echo "== $* (${SECONDS} s)"
}

sources() {
  git ls-files -co --exclude-standard -- "$@"
}

# build PRESET: configures and builds with warnings as errors.
build() {
  cmake --preset "$1" -DMORVANE_WERROR=ON
  cmake --build --preset "$1"
}

step "format"
# Headers that the tool reads are not ours to format.
sources 'src/*.cpp' 'src/*.h' 'tests/*.cpp' 'tests/*.c' 'tests/*.h' ':!*/_*.h' ':!tests/fuzz/corpus' |
  xargs clang-format --dry-run --Werror

step "warnings as errors, g++"
build release

step "warnings as errors, clang++"
cmake -B build-clang -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_C_COMPILER=clang -DMORVANE_WERROR=ON
cmake --build build-clang --parallel "$(nproc)"

step "clang-tidy"
sources 'src/*.cpp' | xargs -P "$(nproc)" -n 4 clang-tidy --quiet -p build-clang 2>/dev/null

step "cppcheck"
cppcheck --enable=warning,performance,portability --std=c++20 --inline-suppr --error-exitcode=1 \
  --quiet -I src -I src/format/include src

step "the suite, release"
ctest --preset release --progress

step "the suite under sanitizers"
build asan
ctest --preset asan --progress

step "the suite for aarch64, under an emulator"
build aarch64
ctest --preset aarch64 --progress

step "end-to-end tests under valgrind"
MORVANE_RUN_PREFIX="valgrind --quiet --leak-check=full --errors-for-leak-kinds=all --error-exitcode=99" \
  ctest --preset release --label-regex end_to_end --progress

step "fuzz targets, 20 seconds each"
scripts/fuzz.sh 20

step "coverage"
scripts/coverage.sh

step "reproducible build"
scripts/reproducible.sh

step "all passed"
