# What morvane_add_package passes to morvane pack, and what a user of Make or Ninja sees of it.
#
#     cmake_module_options_test.sh GENERATOR
source "$SOURCE/tests/documents/test_folder.sh"

generator=$1
morvane=$(command -v morvane)

# project FOLDER LINE: a project whose only package is that of the line.
project() {
  mkdir -p "$1"
  printf '%s\n' 'cmake_minimum_required(VERSION 3.25)' 'project(network NONE)' 'find_package(morvane REQUIRED)' "$2" \
    >"$1/CMakeLists.txt"
}

# configure FOLDER PROGRAM
configure() {
  cmake -S "$1" -B "$1/build" -G "$generator" -Dmorvane_DIR="$SOURCE/cmake" -DMORVANE_PROGRAM="$2" >log 2>&1 ||
    fail "$(<log)"
}

# A warning is shown by the run that packs, and by no other.
project warned 'morvane_add_package(TARGET net FOLDER out PACKAGE net.bin)'
copy_sample "$SOURCE/examples/tiny" warned/out
sed -i 's,"tiny/in","tiny/in:0",' warned/out/_tiny_split_0.h
! "$morvane" lint --werror -q warned/out >expected || fail "the folder has no warning"
configure warned "$morvane"
cmake --build warned/build >log 2>&1 || fail "a warning fails the build: $(<log)"
finding=$(sed "s,^warned/out,$PWD/warned/out," expected)
grep -qxF "$finding" log || fail "the warning is not shown: $(<log)"
grep -q 'net\.bin: packed, 1 DVI, ' log || fail "the package is not told of: $(<log)"
cmake --build warned/build >log 2>&1 || fail "$(<log)"
! grep -qF "$finding" log || fail "a run that packs nothing shows the warning"

# With WERROR it fails the build, which leaves no package.
project strict 'morvane_add_package(TARGET net FOLDER ../warned/out PACKAGE net.bin WERROR)'
configure strict "$morvane"
! cmake --build strict/build >log 2>&1 || fail "WERROR does not fail the build"
grep -qxF "$finding" log || fail "the warning is not shown: $(<log)"
[ ! -e strict/build/net.bin ] || fail "there is a package"

# A program that writes its arguments down, and the files that it is asked for.
cat >program <<'PROGRAM'
#!/bin/sh
printf '%s\n' "$@" >arguments
: >"$4"
printf '%s:\t%s\n' "$4" "$2" | sed 's/ /\\ /g' >"$6"
PROGRAM
chmod +x program

# passes EXPECTED LINE: the arguments behind those that every package has, one a line.
passes() {
  rm -rf fake
  project fake "$2"
  mkdir fake/out
  configure fake "$PWD/program"
  cmake --build fake/build >log 2>&1 || fail "$(<log)"
  { printf '%s\n' pack "$PWD/fake/out" --output "$PWD/fake/build/net.bin" --depfile "$PWD/fake/build/net.bin.d"
    printf %s "$1"; } >expected
  same "the arguments of pack: $2" expected fake/build/arguments
}
passes '' 'morvane_add_package(TARGET net FOLDER out PACKAGE net.bin)'
passes '--vproc
--werror
' 'morvane_add_package(TARGET net FOLDER out PACKAGE net.bin WERROR VPROC)'
passes '--ignore
cut-name,no-value
' 'morvane_add_package(TARGET net FOLDER out PACKAGE net.bin IGNORE cut-name no-value)'
passes '' 'morvane_add_package(TARGET net FOLDER out PACKAGE net.bin IGNORE ${no_codes})'
touch 'known findings.json'
passes "--baseline
$PWD/known findings.json
" 'morvane_add_package(TARGET net FOLDER out PACKAGE net.bin BASELINE "../known findings.json")'

# The package is made again when the baseline changes.
rm fake/build/arguments
cmake --build fake/build >log 2>&1 || fail "$(<log)"
[ ! -e fake/build/arguments ] || fail "the package is made again without a change"
sleep 0.05
touch 'known findings.json'
cmake --build fake/build >log 2>&1 || fail "$(<log)"
[ -e fake/build/arguments ] || fail "a change of the baseline does not make the package again"
project refused 'morvane_add_package(TARGET net FOLDER out PACKAGE net.bin BASELINE)'
! cmake -S refused -B refused/build -Dmorvane_DIR="$SOURCE/cmake" -DMORVANE_PROGRAM="$morvane" >log 2>&1 ||
  fail "BASELINE without a file is taken"
grep -qF 'morvane_add_package: BASELINE names no file' log || fail "$(<log)"
echo "$generator shows what a run finds and passes the options on"
