# Sourced by tests that run programs of node. Their packages, those of package-lock.json here, are in a folder of the
# build, the first argument of the test. The first test that needs them fetches them. Of what npm writes into
# package-lock.json, addresses, licenses, engines and funding are left out: nothing needs them.

packages=$1
lock_file=$SOURCE/tests/node/package-lock.json

fetch_packages() {
  cmp -s "$lock_file" "$packages/node_modules/fetched-package-lock.json" && return
  cp "$SOURCE"/tests/node/package{,-lock}.json "$packages"
  npm ci --prefix "$packages" --prefer-offline --no-audit --no-fund --ignore-scripts --fetch-retries 1 \
    >npm.log 2>&1 || skip "the node packages of tests/node/ are missing and cannot be fetched"
  cp "$lock_file" "$packages/node_modules/fetched-package-lock.json"
}

mkdir -p "$packages"
exec {being_fetched}>"$packages/being_fetched"
flock $being_fetched
fetch_packages
exec {being_fetched}>&-

# run_node PROGRAM ARGUMENT ...: runs a program of the folder tests.
run_node() {
  (cd "$packages" && node "$SOURCE/tests/$1" "${@:2}")
}
