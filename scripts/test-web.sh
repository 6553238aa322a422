#!/bin/bash
# Builds the editor for browsers and tests it in Chromium. A test that fails leaves a picture in
# build/web/screenshots.
#   scripts/test-web.sh [NAME...]     the tests whose file begins with a name; all without one
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/packages.sh web test-web
scripts/web.sh --build
cd host/web
node_modules/.bin/tsc --noEmit
node_modules/.bin/prettier --check --log-level warn 'src/**/*.{ts,css}' 'test/*' 'bench/*' '*.mjs'
node test/run.mjs "$@"
