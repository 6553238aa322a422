#!/bin/bash
# What a key takes in the browser, from the event to the frame that shows it. KEYS=200 is how many.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/packages.sh web test-web
scripts/web.sh --build
cd host/web
exec node bench/typing.mjs
