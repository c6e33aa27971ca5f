#!/usr/bin/env bash
# Runs the suite with coverage and fails when it reaches too little of src/.
source "$(dirname "$0")/requirements.sh"

require_every_test
require gcovr gcovr

cmake --preset coverage
cmake --build --preset coverage
find build-coverage -name '*.gcda' -delete
ctest --preset coverage --progress

# require_coverage LINES BRANCHES TARGET ...: percentages of what the targets are made of.
require_coverage() {
  gcovr --root . --filter 'src/' --exclude-throw-branches --exclude-unreachable-branches \
    --txt build-coverage/coverage.txt --print-summary --fail-under-line "$1" --fail-under-branch "$2" \
    "${@:3}" || { cat build-coverage/coverage.txt; exit 1; }
}

targets=build-coverage/CMakeFiles
echo "morvane_gen:"
require_coverage 99 95 $targets/morvane_core.dir $targets/morvane_gen.dir
echo "morvane:"
require_coverage 99 95 $targets/morvane_cli_core.dir $targets/morvane_cli.dir
