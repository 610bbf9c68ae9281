#!/usr/bin/env bash
# Holds the code against .clang-format and .clang-tidy, and changes nothing:
# lint.sh format            all files
# lint.sh tidy [FILE...]    these .cpp files, or those of src, tests and tools that the Linux and the Windows build have
# Ends with 77 where the tools of Debian 12 are missing (setup.sh lint), or where this is no checkout of git.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

skip() { echo "$1" >&2; exit 77; }

# Other versions lay out otherwise, and complain of other things.
need() { "$1" --version 2>/dev/null | grep -q ' version 14\.' || skip "$1 14 is not installed."; }

# Names of files end in a zero byte, so that any name is one.
tracked() { git ls-files -z "$@"; }

format() {
  need clang-format
  tracked '*.h' '*.cpp' | xargs -0 clang-format --dry-run --Werror
}

# Those of the files, named one a line, that the build in this folder compiles.
built_in() { grep -F -x -f <(python3 -c '
import json, os, sys
for entry in json.load(open(sys.argv[1] + "/compile_commands.json")):
    print(os.path.relpath(entry["file"]))' "$1") || true; }

# read_with BUILD [ARGUMENT...]: the files named on the input, one a line, as they are compiled there.
read_with() {
  local build="$1"
  shift
  tr '\n' '\0' | xargs -0 -n 1 -P "$(nproc)" clang-tidy -p "$build" --quiet \
    --extra-arg=-Wno-unknown-warning-option --extra-arg=-Wno-ignored-optimization-argument "$@"
}

# Folders of their own: clang-tidy cannot read the compiler's precompiled headers.
tidy() {
  need clang-tidy
  local files linux windows=""
  if [ $# -gt 0 ]; then
    files="$(realpath --relative-to=. "$@")"
  else
    files="$(tracked 'src/*.cpp' 'tests/*.cpp' 'tools/*.cpp' | tr '\0' '\n')"
  fi
  cmake --preset lint >/dev/null
  linux="$(built_in build/lint <<<"$files")"

  local mingw=x86_64-w64-mingw32 arguments=()
  if command -v "$mingw-g++-posix" >/dev/null; then
    cmake --preset lint-windows >/dev/null
    windows="$(built_in build/lint-windows <<<"$files" | grep -F -x -v -f <(echo "$linux") || true)"
    # clang takes the headers of MinGW, but for those of the compiler itself.
    arguments=("--extra-arg=--target=$mingw")
    while read -r folder; do
      arguments+=("--extra-arg=-isystem$folder")
    done < <("$mingw-g++-posix" -E -v -x c++ /dev/null 2>&1 | sed -n '/^#include </,/^End of/s/^ //p' |
      grep -v -e 'posix/include$' -e 'include-fixed$')
  fi

  local unread failed=0
  unread="$(grep -F -x -v -f <(printf '%s\n' "$linux" "$windows") <<<"$files" || true)"
  if [ -n "$unread" ]; then
    printf 'In no build of this machine:\n%s\n' "$unread" >&2
    [ $# -eq 0 ] || return 1
  fi
  [ -z "$linux" ] || read_with build/lint <<<"$linux" || failed=1
  [ -z "$windows" ] || read_with build/lint-windows "${arguments[@]}" <<<"$windows" || failed=1
  return $failed
}

git ls-files --error-unmatch tools/lint.sh >/dev/null 2>&1 || skip "This is no checkout of git."
case "${1:-}" in
  format) format ;;
  tidy) tidy "${@:2}" ;;
  *) echo "usage: $0 format | tidy [FILE...]" >&2; exit 2 ;;
esac
