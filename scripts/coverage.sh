#!/usr/bin/env bash
# Runs the suite with coverage and fails when it reaches too little of src/.
source "$(dirname "$0")/requirements.sh"

require_test
require gcovr gcovr

cmake --preset coverage
cmake --build --preset coverage
find build-coverage -name '*.gcda' -delete
ctest --preset coverage --progress
gcovr --root . --filter 'src/' --exclude-throw-branches --exclude-unreachable-branches \
  --txt build-coverage/coverage.txt --print-summary --fail-under-line 99 --fail-under-branch 95 \
  build-coverage/CMakeFiles/morvane_core.dir build-coverage/CMakeFiles/morvane_gen.dir \
  build-coverage/CMakeFiles/morvane_companion_core.dir build-coverage/CMakeFiles/morvane_companion.dir ||
  { cat build-coverage/coverage.txt; exit 1; }
