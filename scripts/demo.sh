#!/usr/bin/env bash
# Builds the tool and shows it at work on the sample folder. Installs what is missing.
source "$(dirname "$0")/requirements.sh"

require_build
if [ ! -e build/CMakeCache.txt ]; then
  cmake -B build -DBUILD_TESTING=OFF >/dev/null
fi
cmake --build build --parallel "$(nproc)" --target shipped

out=build/demo
rm -rf "$out"
mkdir -p "$out"

run() {
  echo
  echo "\$ $*"
  "$@"
}

run build/morvane_gen -d examples/wake_word -f "$out/net.bin" -p "$out" -c -v
echo "The package is $out/net.bin, the parse folder is $out/parse."

run build/morvane_gen -d "$out/parse" -f "$out/again.bin" -c
for image in examples/wake_word/*.dvi; do
  run cmp "$image" "$out/parse/$(basename "$image")"
done
run cmp "$out/net.bin" "$out/again.bin"
run build/morvane check "$out/net.bin"
run build/morvane show "$out/net.bin"
echo "The images and the package made from the parse folder are the same, byte for byte."
