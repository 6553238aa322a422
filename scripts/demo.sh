#!/bin/bash
# Edits a letter and the table of a price list by scripts and shows the text before and after, and
# what the library says. DEMO_PRESET=debug builds for it what the tests can go on with.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/packages.sh build
preset=${DEMO_PRESET:-release}
CONFIGURE="${CONFIGURE:-} -DFORME_TESTS=OFF" scripts/build.sh "$preset" forme_cli
echo
mkdir -p build/demo
for document in letter price-list; do
    "build/$preset/host/cli/forme" run "samples/$document.xml" "samples/$document-demo.jsonl" --show \
        -o "build/demo/$document.xml"
    echo
done
