#!/bin/bash
# Times each key beside QTextDocument, or by itself where Qt is not; arguments go to it, as in:
# scripts/bench-peers.sh --trace FILE.json.gz --keys 200 --all
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/packages.sh build html spelling unicode test bench
scripts/packages.sh peers || true # then Forme is measured alone, and that is told
scripts/build.sh bench forme_peers
exec build/bench/bench/forme_peers "$@"
