#!/usr/bin/env bash
# Installs the Debian packages that a task needs and that are missing: setup.sh run|test
set -euo pipefail

# To build the program.
build=(g++ cmake ninja-build ccache qt6-base-dev libqt6svg6-dev libcups2-dev nlohmann-json3-dev)
# To run it: the fonts of the forms, one for the windows, the toolkit's Dutch texts.
run=(fonts-wine fonts-ocr-b fonts-dejavu-core qt6-translations-l10n)
# To test it.
test=(libgtest-dev libgmock-dev libbenchmark-dev python3 poppler-utils
      cups-daemon cups-client)

case "${1:-}" in
  run) wanted=("${build[@]}" "${run[@]}") ;;
  test) wanted=("${build[@]}" "${run[@]}" "${test[@]}") ;;
  *) echo "usage: $0 run|test" >&2; exit 2 ;;
esac

missing=()
for package in "${wanted[@]}"; do
  if [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" != installed ]; then
    missing+=("$package")
  fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "Install these packages first: ${missing[*]}" >&2; exit 1; }
  as_root=(sudo)
fi
echo "Installing: ${missing[*]}"
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
  "${missing[@]}" >/dev/null
