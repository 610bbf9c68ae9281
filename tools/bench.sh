#!/bin/sh
# Builds the release and measures it: tools/bench.sh [BUILD FOLDER]
set -eu
source=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$source/build}
cmake -S "$source" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DDRUKKEURING_SANITIZE=OFF \
  -DDRUKKEURING_BENCHMARKS=ON > /dev/null
ninja -C "$build" bench_composition bench_preview pdf_batch > /dev/null
exec python3 "$source/tests/bench/compare.py" "$build/bin/pdf_batch" "$build/bin/bench_composition" \
  "$build/bin/bench_preview"
