#!/usr/bin/env bash
# Makes the packages that users install, in dist/: the Debian package, the tar.gz for any other Linux, and the setup and the zip
# of the Windows program. package.sh [linux|windows], or both.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

usage() { echo "usage: $0 [linux|windows]" >&2; exit 2; }
[ $# -le 1 ] || usage

linux() {
  tools/setup.sh build
  tools/setup.sh package
  cmake --preset release >/dev/null
  cmake --build --preset release --target drukkeuring drukkeuring-voorcontrole installed_files
  cpack --config build/release/CPackConfig.cmake -B build/release/packages >/dev/null
  cmake --build --preset release --target archive
  cp build/release/packages/{drukkeuring_"$version"_amd64.deb,drukkeuring-"$version"-linux-x86_64.tar.gz} dist/
}

windows() {
  tools/setup.sh windows
  tools/setup.sh package
  cmake --preset windows >/dev/null
  cmake --build --preset windows --target packages
  cp build/windows/packages/drukkeuring-{setup-"$version".exe,"$version"-windows.zip} dist/
}

version=$(sed -nE 's/^project\(drukkeuring VERSION ([0-9.]+) .*/\1/p' CMakeLists.txt)
mkdir -p dist
case "${1:-}" in
  "") linux; windows ;;
  linux) linux ;;
  windows) windows ;;
  *) usage ;;
esac
ls -1 dist
