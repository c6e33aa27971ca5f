# Installs the Debian packages that a script needs, or names those that it cannot install.
# Sourced by the other scripts; the current folder is then the project's.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# require PACKAGE FILE-OR-COMMAND ...: pairs of a package and what shows that it is there.
require() {
  local missing=()
  while [ $# -gt 0 ]; do
    if [ ! -e "$2" ] && ! command -v "$2" >/dev/null; then
      missing+=("$1")
    fi
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
  require g++ g++ cmake cmake make make
}

require_test() {
  require_build
  require libgtest-dev /usr/include/gtest/gtest.h
}
