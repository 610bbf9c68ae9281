#!/usr/bin/env bash
# Checks the form of the code: clang-format on all files, clang-tidy on those named (or on all of src/ and tools/).
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

git ls-files '*.h' '*.cpp' | xargs clang-format --dry-run --Werror

if [ $# -gt 0 ]; then
  files=("$@")
else
  mapfile -t files < <(git ls-files 'src/**/*.cpp' 'tools/**/*.cpp')
fi
cmake --preset release >/dev/null
printf '%s\0' "${files[@]}" | xargs -0 -n 1 -P "$(nproc)" clang-tidy -p build --quiet \
  --extra-arg=-Wno-unknown-warning-option --extra-arg=-Wno-ignored-optimization-argument
