#!/usr/bin/env bash
# Makes the pictures in docs/images anew, from the programs themselves: every window on both desktops, at 100 % and 200 %,
# and documents as a printer makes them. Beside these the handbook has a form with its blocks, and letters side by side.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

tools/setup.sh test
tools/setup.sh wine
tools/setup.sh screen
tools/setup.sh pictures
cmake --preset release >/dev/null
cmake --build --preset release --target drukkeuring-demo
cmake --preset windows >/dev/null
cmake --build --preset windows

made=$(mktemp -d)
trap 'rm -rf "$made"' EXIT
# The example's settings hold Dutch numbers, whatever the language of this machine is.
export QT_QPA_PLATFORM=offscreen LC_ALL=nl_NL.UTF-8
mkdir "$made/linux" "$made/windows"
five_wrong=tests/stories/pictures/five_wrong.scenario
five_wrong_settings=tests/support/settings/five_wrong.reg
for size in "" --200; do
  # shellcheck disable=SC2086
  build/bin/drukkeuring-demo "$made/linux" $size >/dev/null
  # shellcheck disable=SC2086
  build/bin/drukkeuring-demo "$made/linux" $size --story "$five_wrong" "$five_wrong_settings" >/dev/null
done
# windows_pictures SETTINGS TOUR
windows_pictures() {
  for dpi in 96 192; do
    env -u DISPLAY /usr/bin/python3 tests/windows/show.py --build build/windows --settings "$1" --tour "$2" \
      --out "$made/shown" --dpi "$dpi" >/dev/null
    for picture in "$made"/shown/*.png; do
      name=$(basename "$picture" .png)
      mv "$picture" "$made/windows/$name$([ "$dpi" = 192 ] && echo -200).png"
    done
  done
}
windows_pictures examples/tarvik.reg tests/stories/pictures/tour.scenario
windows_pictures "$five_wrong_settings" "$five_wrong"

for desktop in linux windows; do
  mkdir -p "docs/images/$desktop"
  rm -f "docs/images/$desktop"/*.png
  cp "$made/$desktop"/*.png "docs/images/$desktop/"
done

mkdir -p docs/images/print
forms="$made/linux/Acceptgiroformulieren voor de drukkeuring.pdf"
report="$made/linux/Instellingen calibratie.pdf"
pdftoppm -png -singlefile -r 100 -gray "$forms" docs/images/print/acceptgiro-3-op-1
# In the dots of a printer: the foot of the lowest form with its OCR line, and the first blocks of the report.
pdftoppm -png -singlefile -r 600 -mono -x 660 -y 6190 -W 4200 -H 1010 "$forms" docs/images/print/acceptgiro-600dpi
pdftoppm -png -singlefile -r 600 -mono -x 140 -y 70 -W 3430 -H 1400 "$report" docs/images/print/calibratie-600dpi
tools/pictures/form_blocks.py --write
tools/pictures/ocr_digits.py
ls docs/images/*
