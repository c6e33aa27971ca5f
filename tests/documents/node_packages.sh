# Sourced by tests that need node packages.

# fetch_packages TESTS FOLDER: the packages that the folder TESTS locks are in FOLDER. They are fetched once.
fetch_packages() {
  mkdir -p "$2"
  cmp -s "$1/package-lock.json" "$2/node_modules/fetched-package-lock.json" && return
  # A build in the source folder has them there already.
  [ "$1" -ef "$2" ] || cp "$1/package.json" "$1/package-lock.json" "$2"
  npm ci --prefix "$2" --no-audit --no-fund --ignore-scripts --fetch-retries 1 >npm.log 2>&1 ||
    skip "the node packages of $1/package.json are missing and cannot be fetched"
  cp "$1/package-lock.json" "$2/node_modules/fetched-package-lock.json"
}
