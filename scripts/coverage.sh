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
  --gcov-ignore-parse-errors=negative_hits.warn \
  --txt build-coverage/coverage.txt --txt-metric branch --fail-under-line 99 --fail-under-branch 95 \
  --print-summary build-coverage
cat build-coverage/coverage.txt
