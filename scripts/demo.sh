#!/bin/bash
# Edits a letter and the table of a price list by scripts and shows the text before and after, and
# what the library says.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/packages.sh build
CONFIGURE="${CONFIGURE:-} -DFORME_TESTS=OFF" scripts/build.sh release forme_cli
echo
mkdir -p build/demo
for document in letter price-list; do
    "build/release/host/cli/forme" run "samples/$document.xml" "samples/$document-demo.jsonl" --show \
        -o "build/demo/$document.xml"
    echo
done
