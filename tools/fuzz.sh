#!/usr/bin/env bash
# Builds the fuzzers and runs each for some seconds, two at a time: fuzz.sh [SECONDS [FUZZER...]]
# What they find goes to build/fuzz/found; the corpus in the repository stays as it is. The last line counts:
# "N passed, N failed".
set -uo pipefail
cd "$(dirname "$(readlink -f "$0")")/.." || exit 1

seconds=${1:-60}
shift || true
build=$PWD/build/fuzz
seeds=$PWD/tests/fuzz/corpus
names=("$@")
[ $# -gt 0 ] || mapfile -t names < <(ls "$seeds")
fuzzers=${#names[@]}

fail() { echo "$1" >&2; echo "0 passed, $fuzzers failed"; exit 1; }

tools/setup.sh fuzz || fail "The packages could not be installed."
if ! cmake --preset fuzz >/dev/null || ! nice cmake --build --preset fuzz; then
  fail "The fuzzers could not be built."
fi

# One fuzzer: its log ends with the statistics, or with the fault and the file that shows it.
run_one() {
  local name=$1
  local corpus=$build/corpus/$name found=$build/found
  mkdir -p "$corpus" "$found"
  local options=(-max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -max_len=4096
                 -artifact_prefix="$found/$name-" -print_final_stats=1)
  [ -f "tests/fuzz/$name.dict" ] && options+=(-dict="$PWD/tests/fuzz/$name.dict")
  if nice "$build/bin/fuzz-$name" "${options[@]}" "$corpus" "$seeds/$name" >"$build/$name.log" 2>&1; then
    echo "fuzz $name: passed, $(grep -oE 'cov: [0-9]+' "$build/$name.log" | tail -1)," \
         "$(sed -nE 's/^stat::average_exec_per_sec: +([0-9]+)$/\1/p' "$build/$name.log") a second"
  else
    echo "fuzz $name: failed, see $build/$name.log"
    tail -40 "$build/$name.log" >&2
    return 1
  fi
}
export -f run_one
export build seeds seconds

results=$(printf '%s\n' "${names[@]}" | xargs -P 2 -I{} bash -c 'run_one {}')
echo "$results"
passed=$(grep -c ': passed, ' <<<"$results")
failed=$((fuzzers - passed))
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
