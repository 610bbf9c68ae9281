#!/usr/bin/env bash
# Installs the Debian packages that a task needs and that are missing:
# setup.sh build|run|test|slow|printers|coverage|fuzz|windows|wine|screen|pictures|package|format|lint
set -euo pipefail

# To build the program, with its handbook.
build=(g++ cmake ninja-build ccache qt6-base-dev qt6-svg-dev libcups2-dev libfreetype-dev
       nlohmann-json3-dev python3 python3-markdown)
# To run it: the fonts of the forms, one for the windows, the toolkit's Dutch texts.
run=(fonts-wine fonts-ocr-b fonts-dejavu-core qt6-translations-l10n)
# To test it.
test=(fonts-ocr-a libgtest-dev libgmock-dev qt6-base-private-dev libbenchmark-dev python3 python3-fitz python3-fonttools
      poppler-utils cups-daemon cups-client strace at-spi2-core dbus-daemon libglib2.0-bin xvfb)
# Tests that take minutes: a reader of print, a fresh machine, its screen and keyboard.
slow=(tesseract-ocr tesseract-ocr-eng debootstrap xvfb xauth xdotool imagemagick)

# Other people's printers: their descriptions, their drivers, one without a driver, and readers of what comes out.
printers=(openprinting-ppds foomatic-db-compressed-ppds hp-ppd hpijs-ppds cups-filters cups-filters-core-drivers cups-ppdc
          cups-ipp-utils cups-server-common cups-core-drivers ghostscript poppler-utils dbus-daemon python3-numpy xz-utils
          printer-driver-brlaser printer-driver-c2050 printer-driver-c2esp printer-driver-cjet printer-driver-cups-pdf
          printer-driver-dymo printer-driver-escpr printer-driver-foo2zjs printer-driver-fujixerox
          printer-driver-gutenprint printer-driver-hpcups printer-driver-hpijs printer-driver-indexbraille
          printer-driver-m2300w printer-driver-min12xxw printer-driver-oki printer-driver-pnm2ppa
          printer-driver-postscript-hp printer-driver-ptouch printer-driver-pxljr printer-driver-sag-gdi
          printer-driver-splix)

# To count what the tests reach.
coverage=(gcovr)

# To build the fuzzers.
fuzz=(clang-14 libclang-rt-14-dev)

# To build the Windows program.
windows=(g++-mingw-w64-x86-64-posix cmake ninja-build ccache python3 python3-markdown librsvg2-bin)
# To run it here, with its fonts and Dutch settings, and to print from it.
wine=(wine64 wine64-preloader libgnutls30 libcups2 fonts-wine fonts-ocr-b python3-fonttools locales cups-daemon cups-client
      ghostscript xvfb xauth imagemagick xdotool)

# Its windows on a screen, or on one of paper.
screen=(libx11-6 libxext6 libxcomposite1 libxcursor1 libxfixes3 libxi6 libxinerama1 libxrandr2 libxrender1 libxxf86vm1
        xvfb xauth imagemagick fonts-dejavu-core)

# The letters that the handbook shows side by side.
pictures=(fonts-ocr-a fonts-ocr-b fonts-wine python3-fonttools)

# To make the packages of both systems, and to look into them.
package=(dpkg-dev fonts-wine fonts-ocr-b librsvg2-bin nsis lintian desktop-file-utils appstream man-db groff-base binutils)

# To hold the code against its form and its rules.
format=(clang-format)
lint=(clang-tidy)

case "${1:-}" in
  build) wanted=("${build[@]}") ;;
  run) wanted=("${build[@]}" "${run[@]}") ;;
  test) wanted=("${build[@]}" "${run[@]}" "${test[@]}") ;;
  coverage) wanted=("${build[@]}" "${test[@]}" "${coverage[@]}") ;;
  fuzz) wanted=("${build[@]}" "${fuzz[@]}") ;;
  slow) wanted=("${build[@]}" "${run[@]}" "${test[@]}" "${slow[@]}") ;;
  printers) wanted=("${test[@]}" "${printers[@]}") ;;
  windows) wanted=("${windows[@]}") ;;
  wine) wanted=("${windows[@]}" "${wine[@]}") ;;
  screen) wanted=("${screen[@]}") ;;
  pictures) wanted=("${pictures[@]}") ;;
  package) wanted=("${package[@]}") ;;
  format) wanted=("${format[@]}") ;;
  lint) wanted=("${build[@]}" "${test[@]}" "${windows[@]}" "${format[@]}" "${lint[@]}") ;;
  *) echo "usage: $0 build|run|test|slow|printers|coverage|fuzz|windows|wine|screen|pictures|package|format|lint" >&2; exit 2 ;;
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
