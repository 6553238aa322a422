#!/bin/bash
# Times every request on documents of several shapes and three sizes and prints what grows faster
# than the text; arguments go to it, as in: scripts/bench-growth.sh --shape list --request erase
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/packages.sh build html spelling unicode test bench
scripts/build.sh bench forme_growth
exec build/bench/bench/forme_growth "$@"
