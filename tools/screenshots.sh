#!/usr/bin/env bash
# Makes the pictures in docs/images anew, from the programs themselves: every window on both desktops, at 100 % and 200 %.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

tools/setup.sh run
tools/setup.sh wine
tools/setup.sh screen
cmake --preset release >/dev/null
cmake --build --preset release --target drukkeuring-demo
cmake --preset windows >/dev/null
cmake --build --preset windows

made=$(mktemp -d)
trap 'rm -rf "$made"' EXIT
# The example's settings hold Dutch numbers, whatever the language of this machine is.
export QT_QPA_PLATFORM=offscreen LC_ALL=nl_NL.UTF-8
mkdir "$made/linux" "$made/windows"
for size in "" --200; do
  # shellcheck disable=SC2086
  build/bin/drukkeuring-demo "$made/linux" $size >/dev/null
done
for dpi in 96 192; do
  env -u DISPLAY /usr/bin/python3 tests/windows/show.py --build build/windows --settings examples/tarvik.reg \
    --out "$made/shown" --dpi "$dpi" >/dev/null
  for picture in "$made"/shown/*.png; do
    name=$(basename "$picture" .png)
    mv "$picture" "$made/windows/$name$([ "$dpi" = 192 ] && echo -200).png"
  done
done

for desktop in linux windows; do
  mkdir -p "docs/images/$desktop"
  rm -f "docs/images/$desktop"/*.png
  cp "$made/$desktop"/*.png "docs/images/$desktop/"
done
ls docs/images/*
