#!/bin/bash
# Runs the benchmarks; arguments go to them, as in: scripts/bench.sh --benchmark_filter=Caret
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/packages.sh build html spelling unicode test bench
if ! compgen -G 'bench/*.cpp' >/dev/null; then
    echo "bench.sh: there are no benchmarks in bench/ yet" >&2
    exit 1
fi
scripts/build.sh bench forme_bench
exec build/bench/bench/forme_bench "$@"
