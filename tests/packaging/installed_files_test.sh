# What an installation consists of, besides the documents.
source "$SOURCE/tests/documents/test_folder.sh"

cmake --install "$BUILD" --prefix prefix >log 2>&1 || fail "$(<log)"

# morvane is installed where it is built.
cat >all <<'END'
bin/morvane
bin/morvane_gen
include/morvane/package_format.h
include/morvane/package_view.h
lib/ARCHITECTURE/cmake/morvane_view/morvane_viewConfig-release.cmake
lib/ARCHITECTURE/cmake/morvane_view/morvane_viewConfig.cmake
lib/ARCHITECTURE/cmake/morvane_view/morvane_viewConfigVersion.cmake
lib/ARCHITECTURE/libmorvane_view.a
lib/ARCHITECTURE/morvane-gen/libmorvane.so
lib/ARCHITECTURE/morvane-gen/morvane_gen
lib/ARCHITECTURE/pkgconfig/morvane-view.pc
share/bash-completion/completions/morvane
share/bash-completion/completions/morvane_gen
share/cmake/morvane/morvaneConfig.cmake
share/cmake/morvane/morvaneConfigVersion.cmake
share/man/man1/morvane.1.gz
share/man/man1/morvane_gen.1.gz
share/zsh/site-functions/_morvane
share/zsh/site-functions/_morvane_gen
END
if [ -e "$BUILD/morvane" ]; then
  cp all expected
else
  grep -v '/_\?morvane$\|/morvane\.1\|/morvaneConfig' all >expected
fi
(cd prefix && find . ! -type d ! -path './share/doc/*' | sed 's,^\./,,; s,^lib/[^/]*-linux-gnu/,lib/ARCHITECTURE/,' |
  LC_ALL=C sort) >found
same "installed files" expected found

prefix/bin/morvane_gen --version >version || [ $? -eq 1 ]
grep -q '^version 2\.1\.6' version || fail "the installed tool does not start"

# A project finds morvane by its version, and again after the installation was moved.
if [ -e "$BUILD/morvane" ]; then
  mkdir consumer
  printf 'cmake_minimum_required(VERSION 3.25)\nproject(consumer NONE)\nfind_package(morvane 1.0 REQUIRED)\n' \
    >consumer/CMakeLists.txt
  for prefix in prefix moved; do
    [ -e $prefix ] || mv prefix $prefix
    cmake -S consumer -B consumer/build -DCMAKE_PREFIX_PATH="$scratch/$prefix" >log 2>&1 || fail "$(<log)"
    grep -q "^MORVANE_PROGRAM:FILEPATH=$scratch/$prefix/bin/morvane\$" consumer/build/CMakeCache.txt ||
      fail "found $(grep '^MORVANE_PROGRAM:' consumer/build/CMakeCache.txt)"
  done
  mv moved prefix
fi
zcat prefix/share/man/man1/morvane_gen.1.gz | cmp - "$SOURCE/docs/morvane_gen.1"
