#!/bin/bash
# Runs every fuzz target for some time and stops at the first fault.
#   scripts/fuzz.sh [SECONDS]     30 for each target, unless told otherwise
# What was learnt is kept in build/fuzz/corpus, and an input that fails in build/fuzz/failures.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:-30}
scripts/packages.sh build clang
scripts/build.sh fuzz
mkdir -p build/fuzz/failures
for target in build/fuzz/tests/fuzz/*Fuzz; do
    name=$(basename "$target")
    corpus=build/fuzz/corpus/$name
    mkdir -p "$corpus"
    echo "$name, $seconds seconds"
    "$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=0 \
        -verbosity=0 -print_funcs=0 -max_len=4096 -dict=tests/fuzz/xml.dict -artifact_prefix=build/fuzz/failures/ \
        "$corpus" samples tests/fuzz/seeds
done
echo "No fault found."
