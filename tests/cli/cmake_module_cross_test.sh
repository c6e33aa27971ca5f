# Which program find_package(morvane) finds, in builds for this machine and for another one.
source "$SOURCE/tests/documents/test_folder.sh"

# A system of the target with the module and a program, and one program of the host in PATH.
install -D "$SOURCE/cmake/morvaneConfig.cmake" target/usr/share/cmake/morvane/morvaneConfig.cmake
for program in target/usr/bin/morvane host/morvane; do
  mkdir -p "${program%/*}"
  printf '#!/bin/sh\n' >$program
  chmod +x $program
done
mkdir project
printf '%s\n' 'cmake_minimum_required(VERSION 3.25)' 'project(network NONE)' 'find_package(morvane REQUIRED)' \
  >project/CMakeLists.txt

# finds PROGRAM PATH OPTION ...: what a project finds with this PATH and these options of CMake.
finds() {
  rm -rf build
  PATH=$2 cmake -S project -B build "${@:3}" >log 2>&1 || fail "$(<log)"
  sed -n 's/^MORVANE_PROGRAM:FILEPATH=//p' build/CMakeCache.txt >found
  [ "$(realpath "$(<found)")" = "$PWD/$1" ] || fail "${*:3} finds $(<found), not $1"
}

# Nothing else is found in PATH, wherever this machine has a morvane.
mkdir tools
ln -s "$(command -v cmake)" tools/cmake
without=$PWD/tools
with=$PWD/host:$without
here=(-DCMAKE_PREFIX_PATH="$PWD/target/usr" -DCMAKE_MAKE_PROGRAM="$(command -v make)")
cross=("${here[@]}" -DCMAKE_SYSTEM_NAME=Linux -DCMAKE_FIND_ROOT_PATH="$PWD/target")
finds target/usr/bin/morvane "$with" "${here[@]}"
finds host/morvane "$with" "${cross[@]}"
finds host/morvane "$with" "${cross[@]}" -DCMAKE_FIND_ROOT_PATH_MODE_PROGRAM=NEVER
finds host/morvane "$with" "${cross[@]}" -DCMAKE_FIND_ROOT_PATH_MODE_PROGRAM=BOTH
finds target/usr/bin/morvane "$with" "${cross[@]}" -DCMAKE_FIND_ROOT_PATH_MODE_PROGRAM=ONLY
finds target/usr/bin/morvane "$without" "${cross[@]}"
