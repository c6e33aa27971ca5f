#!/usr/bin/env bash
# Builds the tool and runs its tests. Installs what the build and GoogleTest need. A test that needs more is skipped
# where that is missing; the reasons come last. Ends with the exit status of ctest.
source "$(dirname "$0")/requirements.sh"

require_test
cmake -B build -DBUILD_TESTING=ON
cmake --build build --parallel "$(nproc)"
status=0
ctest --test-dir build --output-on-failure --no-tests=error --parallel "$(nproc)" || status=$?
awk -f tests/skipped_tests.awk build/Testing/Temporary/LastTest.log
exit $status
