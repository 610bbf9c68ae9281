#!/usr/bin/env bash
# Tells how much of src/ the unit tests and the scenarios reach, and what they do not: coverage.sh [BUILD FOLDER]
# The platforms of Qt, Windows and the tests are left out, and so are branches that only an exception takes.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-$PWD/build/coverage}

tools/setup.sh coverage
cmake --preset coverage -B "$build" >/dev/null
units=()
for list in tests/unit/*/CMakeLists.txt tests/unit/desktop/regfile/CMakeLists.txt tests/memory/tests/CMakeLists.txt; do
  units+=("$(sed -n 's/^drukkeuring_test(\([a-z_]*\).*/\1/p' "$list")")
done
nice cmake --build "$build" --target "${units[@]}" drukkeuring-scenario
find "$build" -name '*.gcda' -delete

for unit in "${units[@]}"; do
  "$build/bin/$unit" --gtest_brief=1
done
(cd "$build" && ctest -j "$(nproc)" -R '^scenario[.]' --output-on-failure | tail -n 4)

gcovr --root "$PWD" --object-directory "$build" --filter "$PWD/src/" --exclude "$PWD/src/desktop/(qt|cups|windows)/" \
  --exclude-throw-branches --exclude-unreachable-branches --json "$build/coverage.json" "$build"
exec python3 tools/coverage_report.py "$build/coverage.json"
