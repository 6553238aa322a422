#!/bin/bash
# Checks the format of all sources and runs clang-tidy over those of the library and its hosts.
#   scripts/lint.sh [BUILD]       a configured build, whose compile commands are used
set -euo pipefail
cd "$(dirname "$0")/.."

build=${1:-build/asan}
scripts/packages.sh lint

check_format() {
    find src host tests bench docs -name '*.h' -o -name '*.cpp' | sort |
        xargs clang-format --dry-run -Werror
}

# Each file's output comes at once, so that those of two processes do not mix.
check_code() {
    find src host -name '*.cpp' | sort | xargs -P "${JOBS:-$(nproc)}" -n 1 bash -c '
        output=$(clang-tidy --quiet -p "$0" "$1" 2>&1) || { echo "$output"; exit 1; }' "$build"
}

# Both are run whatever the other says.
failed=
check_format && echo "The format is right." || failed=1
check_code && echo "clang-tidy has nothing to say." || failed=1
[ -z "$failed" ]
