#!/bin/bash
# Edits a letter by a script and shows the text before and after, and what the library says.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/packages.sh build
scripts/build.sh release forme_cli
echo
mkdir -p build/demo
exec build/release/host/cli/forme run samples/letter.xml samples/letter-demo.jsonl --show \
    -o build/demo/letter.xml
