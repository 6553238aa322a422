#!/bin/bash
# Checks the format of all sources and runs clang-tidy over those of the library and its hosts.
#   scripts/lint.sh [BUILD]       a configured build, whose compile commands are used
# ANALYZER_NODES sets how far clang's analyzer follows the paths through one function. A tenth of
# what it does by itself, 225000, takes a third of the time.
set -euo pipefail
cd "$(dirname "$0")/.."

build=${1:-build/asan}
scripts/packages.sh lint

check_format() {
    find src host tests bench docs -name '*.h' -o -name '*.cpp' | sort |
        xargs clang-format --dry-run -Werror
}

analyzer=(-Xclang -analyzer-config -Xclang "max-nodes=${ANALYZER_NODES:-22500}")

# Each file's output comes at once, so that those of two processes do not mix.
check_each() {
    sort | xargs -P "${JOBS:-$(nproc)}" -n 1 bash -c '
        output=$(clang-tidy --quiet -p "$0" "$@" 2>&1) || { echo "$output"; exit 1; }' \
        "$build" "${analyzer[@]/#/--extra-arg=}" "$@"
}

# The tables of requests are little code on large headers, through which every check walks: 11 s a
# file with all of them, half of that with those that find what can be wrong in a row.
rows='-*,bugprone-use-after-move,bugprone-dangling-handle,bugprone-unused-raii'
rows+=',performance-for-range-copy,misc-unused-parameters'
check_code() {
    find src host -name '*.cpp' ! -path 'host/cli/calls/*' | check_each || return
    # CI has no minute to spare for them.
    [ -n "${CI:-}" ] || find host/cli/calls -name '*.cpp' | check_each "--checks=$rows"
}

# Both are run whatever the other says.
failed=
check_format && echo "The format is right." || failed=1
check_code && echo "clang-tidy has nothing to say." || failed=1
[ -z "$failed" ]
