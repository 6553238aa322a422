#!/bin/bash
# Builds the editor for browsers into build/web/page and serves it on the loopback address.
#   scripts/web.sh [--build]      --build does not serve
# PORT is where it is served, 8137 without it.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/packages.sh web
log=$(mktemp)
trap 'rm -f "$log"' EXIT
quietly() {
    "$@" >"$log" 2>&1 || { cat "$log" >&2; exit 1; }
}

[ host/web/node_modules/.package-lock.json -nt host/web/package-lock.json ] ||
    quietly npm ci --prefix host/web --ignore-scripts --no-audit --no-fund
# Emscripten's own scripts look for a parser of JavaScript.
export NODE_PATH=$PWD/host/web/node_modules
[ -f build/web/module/build.ninja ] || quietly emcmake cmake -S host/web -B build/web/module -G Ninja
echo "Building the library for browsers; the first time this takes some minutes."
quietly cmake --build build/web/module -j "${JOBS:-$(nproc)}"
node host/web/build.mjs
[ "${1:-}" = --build ] || exec node host/web/serve.mjs "${PORT:-8137}"
