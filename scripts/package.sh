#!/usr/bin/env bash
# Makes the .deb and .tar.gz packages for this host and for arm64 in dist/, and checks them. Installs
# what is missing.
source "$(dirname "$0")/requirements.sh"

require_build
require g++-aarch64-linux-gnu aarch64-linux-gnu-g++ lintian lintian dpkg-dev dpkg-shlibdeps file file

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# pack FOLDER: builds a copy of the tree in a folder and makes its four packages.
pack() {
  copy_sources "$1"
  local toolchain
  for toolchain in "" "$1/cmake/aarch64.cmake"; do
    local build="$1/build${toolchain:+-aarch64}"
    cmake -S "$1" -B "$build" -DBUILD_TESTING=OFF ${toolchain:+-DCMAKE_TOOLCHAIN_FILE="$toolchain"}
    cmake --build "$build" --parallel "$(nproc)"
    (cd "$build" && cpack -B "$1/packages")
  done >"$1/log" 2>&1 || { cat "$1/log" >&2; exit 1; }
}

pack "$scratch/one"
pack "$scratch/another/and/deeper"
rm -rf dist
mkdir dist
for package in "$scratch"/one/packages/*.{deb,tar.gz}; do
  cmp "$package" "$scratch/another/and/deeper/packages/$(basename "$package")"
  cp "$package" dist
done
echo "Two builds from different folders gave the same bytes:"
(cd dist && sha256sum *)

lintian --fail-on error,warning --allow-root dist/*.deb 2>/dev/null
echo "Lintian finds no error and no warning."

# An empty root gets the package and the system libraries that it names, nothing else: not even /proc.
root="$scratch/root"
mkdir "$root"
dpkg-deb --extract dist/*_"$(dpkg --print-architecture)".deb "$root"
ldd "$root"/usr/lib/*/morvane-gen/libmorvane.so | grep -o '/lib[^ ]*' | while read -r library; do
  install -D "$library" "$root$library"
done
cp -r examples/wake_word "$root/wake_word"
as_root=(chroot "$root")
[ "$(id -u)" -eq 0 ] || as_root=(unshare --map-root-user "${as_root[@]}")
"${as_root[@]}" /usr/bin/morvane_gen -d /wake_word -f /net.bin -p / -c -v >"$scratch/report"
grep '^Save to file' "$scratch/report"
cmp "$root/parse/wake_word_split_0.dvi" examples/wake_word/wake_word_split_0.dvi
echo "Installed into an empty root, the tool packs and inspects the sample folder."
