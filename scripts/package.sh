#!/usr/bin/env bash
# package.sh [BUILD BUILD_AARCH64]: makes the .deb and .tar.gz packages for this host and for arm64 in dist/,
# after they passed every check below. Builds the tree twice, for both. BUILD and BUILD_AARCH64 are finished release
# builds for this host and for arm64: with them it builds only once. Installs what is missing.
source "$(dirname "$0")/requirements.sh"

require_package

fail() {
  echo "package.sh: $*" >&2
  exit 1
}

rm -rf dist
scratch=$(mktemp -d)
# On another file system, when there is one: folders are listed in another order there.
elsewhere=$(mktemp -d -p "$([ -w /dev/shm ] && echo /dev/shm || echo /tmp)")
trap 'rm -rf "$scratch" "$elsewhere"' EXIT

# logged COMMAND ...: shows what the command printed only when it fails.
logged() {
  "$@" >"$scratch/log" 2>&1 || { cat "$scratch/log" >&2; fail "$* failed"; }
}

# build FOLDER: builds a copy of the tree in a folder, for this host and for arm64.
build() {
  copy_sources "$1"
  logged cmake -S "$1" -B "$1/build" -DBUILD_TESTING=OFF
  logged cmake -S "$1" -B "$1/build-aarch64" -DBUILD_TESTING=OFF --toolchain "$1/cmake/aarch64.cmake"
  logged cmake --build "$1/build" --parallel "$(nproc)" --target shipped
  logged cmake --build "$1/build-aarch64" --parallel "$(nproc)" --target shipped
}

# pack FOLDER BUILD ...: makes the packages of builds under the current umask, in FOLDER/packages_UMASK.
pack() {
  local build packages
  packages=$1/packages_$(umask)
  for build in "${@:2}"; do
    (cd "$build" && logged cpack -B "$packages")
    rm -rf "$packages/_CPack_Packages"
  done
}

# The same tree twice, in surroundings that differ in everything that could find its way into a file.
one=$scratch/one
another="$elsewhere/another/ş folder/deeper"
if [ $# -eq 2 ]; then
  builds=("$(realpath "$1")" "$(realpath "$2")")
else
  builds=("$one"/build{,-aarch64})
fi
localedef -i tr_TR -f UTF-8 "$scratch/tr_TR.UTF-8"
(
  umask 022
  export LC_ALL=C TZ=UTC0
  [ $# -eq 2 ] || build "$one"
  pack "$one" "${builds[@]}"
)
(
  umask 077
  # The programs that bash starts find this locale, bash itself does not.
  export LOCPATH="$scratch" LC_ALL=tr_TR.UTF-8 TZ=NPT-5:45 2>/dev/null
  build "$another"
  pack "$another" "$another"/build{,-aarch64}
)
for mask in 002 027; do
  (
    umask $mask
    pack "$one" "${builds[@]}"
  )
done

for binary in morvane_gen libmorvane.so morvane; do
  cmp "${builds[0]}/$binary" "$another/build/$binary"
  cmp "${builds[1]}/$binary" "$another/build-aarch64/$binary"
done
packages=$one/packages_0022
for others in "$one/packages_0002" "$one/packages_0027" "$another/packages_0077"; do
  diff -r "$packages" "$others"
done
echo "Builds in different folders, locales, time zones and under four umasks gave the same bytes:"
(cd "$packages" && sha256sum ./*)

lintian --fail-on error,warning --allow-root "$packages"/*.deb 2>/dev/null
echo "Lintian finds no error and no warning."
for package in "$packages"/*.deb; do
  dpkg-deb --field "$package" >"$scratch/fields"
  grep -q '^Multi-Arch: ' "$scratch/fields" || fail "$package has no field Multi-Arch"
  ! grep '^Homepage:' "$scratch/fields" || fail "$package has a homepage"
done

for package in "$packages"/libmorvane-view-dev_*.deb; do
  dpkg-deb --field "$package" >"$scratch/fields"
  ! grep '^Depends:' "$scratch/fields" || fail "$package depends on something"
  grep -q '^Description: reader of ' "$scratch/fields" || fail "$package has a wrong synopsis"
done

# An empty root gets the package and the system libraries that it names, nothing else: not even /proc.
root="$scratch/root"
mkdir "$root"
dpkg-deb --extract "$packages"/morvane-gen_*_"$(dpkg --print-architecture)".deb "$root"
ldd "$root"/usr/lib/*/morvane-gen/libmorvane.so | grep -o '/lib[^ ]*' | while read -r library; do
  install -D "$library" "$root$library"
done
cp -r examples/wake_word "$root/wake_word"
as_root=(chroot "$root")
[ "$(id -u)" -eq 0 ] || as_root=(unshare --map-root-user "${as_root[@]}")
"${as_root[@]}" /usr/bin/morvane_gen -d /wake_word -f /net.bin -p / -c -v >"$scratch/report"
grep '^Save to file' "$scratch/report"
cmp "$root/parse/wake_word_split_0.dvi" examples/wake_word/wake_word_split_0.dvi
"${as_root[@]}" /usr/bin/morvane check /net.bin
echo "Installed into an empty root, the tools pack, inspect and check the sample folder."

[ -e "$root/usr/share/zsh/vendor-completions/_morvane_gen" ] || fail "Debian's zsh finds no completion"
TEST=packages SOURCE=$PWD NEEDS="" bash tests/packaging/installed_documents_test.sh "$root/usr"
echo "The links and the commands of the installed documents work."

mkdir dist
cp "$packages"/* dist
