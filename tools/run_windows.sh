#!/usr/bin/env bash
# Builds the Windows program and starts it under Wine, in a Windows of its own with the example settings. Without a display
# it plays a demonstration and leaves screenshots in out/windows.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

tools/setup.sh wine
tools/setup.sh screen
cmake --preset windows >/dev/null
cmake --build --preset windows

exec /usr/bin/python3 tests/windows/show.py --build build/windows --settings examples/tarvik.reg --out out/windows
