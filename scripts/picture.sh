#!/usr/bin/env bash
# Makes docs/report.png, the picture of a page in README.md: the page of the sample package.
source "$(dirname "$0")/requirements.sh"

require_build
require chromium chromium fonts-dejavu-core /usr/share/fonts/truetype/dejavu
if [ ! -e build/CMakeCache.txt ]; then
  cmake -B build -DBUILD_TESTING=OFF >/dev/null
fi
cmake --build build --parallel "$(nproc)" --target morvane_cli

scratch=$(mktemp -d "${TMPDIR:-/tmp}/morvane_picture.XXXXXX")
trap 'rm -rf "$scratch"' EXIT

# One family of fonts, so that the picture is the same wherever it is made.
cat >"$scratch/fonts.conf" <<END
<fontconfig>
<dir>/usr/share/fonts/truetype/dejavu</dir><cachedir>$scratch</cachedir>
<include>/etc/fonts/conf.d</include>
</fontconfig>
END
build/morvane pack examples/wake_word -o "$scratch/net.bin" --vproc --no-sync --quiet 2>/dev/null
build/morvane report "$scratch/net.bin" -o "$scratch/net.html"
FONTCONFIG_FILE=$scratch/fonts.conf chromium --headless --no-sandbox --disable-gpu --disable-quic --no-first-run \
  --disable-background-networking --disable-component-update --disable-sync --hide-scrollbars \
  --user-data-dir="$scratch/profile" --window-size=960,960 --screenshot="$PWD/docs/report.png" \
  "file://$scratch/net.html" >"$scratch/log" 2>&1 || { cat "$scratch/log" >&2; exit 1; }
