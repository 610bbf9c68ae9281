#!/usr/bin/env bash
# Checks the form of the code: clang-format on all files, clang-tidy on those named (or on all of src/ and tools/ that are
# built for this machine).
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

git ls-files '*.h' '*.cpp' | xargs clang-format --dry-run --Werror

if [ $# -gt 0 ]; then
  files=("$@")
else
  mapfile -t files < <(git ls-files 'src/**/*.cpp' 'tests/stories/**/*.cpp' 'tools/**/*.cpp' | grep -v -e '^src/desktop/windows/' -e main_windows)
fi
# A folder of its own: clang-tidy cannot read the compiler's precompiled headers.
cmake --preset lint >/dev/null
printf '%s\0' "${files[@]}" | xargs -0 -n 1 -P "$(nproc)" clang-tidy -p build/lint --quiet \
  --extra-arg=-Wno-unknown-warning-option --extra-arg=-Wno-ignored-optimization-argument
