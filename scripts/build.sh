#!/bin/bash
# Configures a preset and builds it, quietly unless something is wrong.
#   scripts/build.sh PRESET [TARGET...]
# JOBS sets how many compilers run at once; without it, one for each processor. CONFIGURE is what the
# preset is told besides, as -DNAME=VALUE.
set -euo pipefail
cd "$(dirname "$0")/.."

preset=$1
shift
targets=(all "$@")
[ $# = 0 ] || targets=("$@")

log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! cmake --preset "$preset" ${CONFIGURE:-} >"$log" 2>&1; then
    cat "$log" >&2
    exit 1
fi
cmake --build --preset "$preset" -j "${JOBS:-$(nproc)}" --target "${targets[@]}"
