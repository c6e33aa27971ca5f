#!/usr/bin/env bash
# Builds the tool from two copies of the tree in different folders and compares the binaries.
source "$(dirname "$0")/requirements.sh"

require_build
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
for copy in one another/and/deeper; do
  copy_sources "$scratch/$copy"
  cmake -S "$scratch/$copy" -B "$scratch/$copy/build" -DBUILD_TESTING=OFF >/dev/null
  cmake --build "$scratch/$copy/build" --parallel "$(nproc)" >/dev/null
done
for binary in morvane_gen libmorvane.so; do
  cmp "$scratch/one/build/$binary" "$scratch/another/and/deeper/build/$binary"
  echo "$binary is the same from both folders"
done
