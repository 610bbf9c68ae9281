#!/usr/bin/env bash
# Prints where the time of the last build and of the last tests went: the ten slowest files and tests, and totals by folder.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
exec /usr/bin/env python3 tools/timing.py build "$@"
