#!/usr/bin/env bash
# Usage: scripts/fuzz.sh SECONDS [TARGET]
# Builds the fuzz targets and runs one, or all in turn, for so many seconds each. What they find and
# learn stays in build-fuzz/runs/TARGET. Ends with a line of figures per target, and with a failure
# when one of them found something.
source "$(dirname "$0")/requirements.sh"

if [ $# -lt 1 ] || [ $# -gt 2 ]; then
  echo "usage: scripts/fuzz.sh SECONDS [TARGET]" >&2
  exit 2
fi
seconds=$1
if [ $# -eq 2 ]; then
  targets=("$2")
else
  targets=(header_parsers package_reader package_view folder_names pack_inspect_pack package_commands lint)
fi

require_fuzz
cmake --preset fuzz
cmake --build --preset fuzz --target "${targets[@]/#/fuzz_}"

# The targets work in folders that are cheap to write to.
scratch=$(mktemp -d -p "$([ -w /dev/shm ] && echo /dev/shm || echo /tmp)")
trap 'rm -rf "$scratch"' EXIT
export TMPDIR=$scratch

# figure NAME LOG: a number of the fuzzer's closing statistics.
figure() {
  sed -n "s/^stat::$1: *//p" "$2"
}

# coverage EVENT LOG: how many edges of the code were reached at the last event of a kind.
coverage() {
  sed -n "s/^#[0-9]*\t$1 *cov: \([0-9]*\).*/\1/p" "$2" | tail -1
}

status=0
summary=()
for target in "${targets[@]}"; do
  run=build-fuzz/runs/$target
  mkdir -p "$run/corpus"
  log=$run/log
  dictionary=$([[ $target == package_* ]] && echo packages || echo headers)
  echo "Running fuzz_$target for $seconds seconds"
  found=no
  if ! "build-fuzz/tests/fuzz/fuzz_$target" -max_total_time="$seconds" -timeout=20 -max_len=8192 \
    -dict="tests/fuzz/dictionaries/$dictionary.dict" -artifact_prefix="$run/" -print_final_stats=1 \
    "$run/corpus" "tests/fuzz/corpus/$target" 2>"$log"; then
    found="yes, see $log"
    status=1
    tail -40 "$log" >&2
  fi
  summary+=("$target: $(figure number_of_executed_units "$log") executions, \
$(figure average_exec_per_sec "$log") a second, coverage $(coverage INITED "$log") to \
$(coverage '[A-Z]*' "$log") edges, finding: $found")
done
printf '%s\n' "${summary[@]}"
exit "$status"
