# Installs the Debian packages that a script needs, or names those that it cannot install.
# Sourced by the other scripts; the current folder is then the project's.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# is_there COMMAND, or is_there /PATH/OF/A/FILE
is_there() {
  case $1 in
    /*) [ -e "$1" ] ;;
    *) command -v "$1" >/dev/null ;;
  esac
}

# require PACKAGE PROOF ...: pairs of a package and the command or file that shows that it is installed.
require() {
  local missing=()
  while [ $# -gt 0 ]; do
    is_there "$2" || missing+=("$1")
    shift 2
  done
  if [ ${#missing[@]} -eq 0 ]; then
    return
  fi
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    as_root=(sudo)
    [ -t 0 ] || as_root+=(-n)
  fi
  if ! command -v apt-get >/dev/null || ! "${as_root[@]}" true 2>/dev/null; then
    echo "These Debian packages are missing and cannot be installed from here: ${missing[*]}" >&2
    exit 1
  fi
  echo "Installing ${missing[*]}"
  "${as_root[@]}" apt-get update -qq
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -qq -y --no-install-recommends "${missing[@]}" >/dev/null
}

require_build() {
  require g++ g++ cmake cmake make make libcli11-dev /usr/include/CLI/CLI.hpp \
    nlohmann-json3-dev /usr/include/nlohmann/json.hpp libxxhash-dev /usr/include/xxhash.h
}

require_test() {
  require_build
  require libgtest-dev /usr/include/gtest/gtest.h
}

# Where one of them is missing, tests are skipped.
require_every_test() {
  require_test
  require_view_targets
  require locales /usr/share/i18n/locales/tr_TR \
    mandoc mandoc xxhash xxhsum zsh zsh graphviz dot nodejs node npm npm ninja-build ninja \
    chromium chromium fonts-dejavu-core /usr/share/fonts/truetype/dejavu \
    fonts-liberation /usr/share/fonts/truetype/liberation
}

require_fuzz() {
  require_test
  require clang clang++ libclang-rt-14-dev \
    "/usr/lib/llvm-14/lib/clang/14.0.6/lib/linux/libclang_rt.fuzzer-$(uname -m).a"
}

require_package() {
  require_build
  require g++-aarch64-linux-gnu aarch64-linux-gnu-g++ lintian lintian dpkg-dev dpkg-shlibdeps file file \
    locales /usr/share/i18n/locales/tr_TR
}

require_proof() {
  require frama-c-base frama-c why3 why3 cvc4 cvc4
}

# The machines that the reader for loaders is compiled for, and the emulators of those that run it.
require_view_targets() {
  require g++-aarch64-linux-gnu aarch64-linux-gnu-g++ gcc-arm-none-eabi arm-none-eabi-gcc \
    gcc-s390x-linux-gnu s390x-linux-gnu-gcc libc6-dev-s390x-cross /usr/s390x-linux-gnu/include/stdio.h \
    qemu-user qemu-s390x pkg-config pkg-config
}

# copy_sources FOLDER: what the tool and its packages are built from.
copy_sources() {
  mkdir -p "$1"
  cp -r CMakeLists.txt README.md CONTRIBUTING.md CHANGELOG.md cmake completions docs examples packaging src "$1"
}
