#!/usr/bin/env bash
# Builds the tool and runs every test. Installs what is missing. Ends with the exit status of ctest.
source "$(dirname "$0")/requirements.sh"

require_test
cmake -B build -DBUILD_TESTING=ON
cmake --build build --parallel "$(nproc)"
ctest --test-dir build --output-on-failure --no-tests=error --parallel "$(nproc)"
