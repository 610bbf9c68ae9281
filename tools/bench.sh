#!/bin/sh
# Builds the benchmarks and runs them, or with "load" what grows with its load: tools/bench.sh [BUILD FOLDER [load]]
set -eu
source=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$source/build/bench}
(cd "$source" && cmake --preset bench -B "$build" > /dev/null)
ninja -C "$build" bench_composition bench_precheck bench_preview load pdf_batch > /dev/null
if [ "${2:-}" = load ]; then
  exec python3 "$source/tests/bench/load.py" "$build/bin/load" "$build/bin/pdf_batch"
fi
exec python3 "$source/tests/bench/compare.py" "$build/bin/pdf_batch" "$build/bin/bench_composition" \
  "$build/bin/bench_preview" "$build/bin/bench_precheck"
