#!/bin/bash
# Builds everything and runs all tests, then builds a program against the installed package.
#   scripts/test.sh [PRESET]      debug (without an argument), bench or asan
set -euo pipefail
cd "$(dirname "$0")/.."

preset=${1:-debug}
tasks=(build html spelling unicode terminal test)
case $preset in
    asan) tasks+=(clang) ;;
    bench) tasks+=(bench) ;;
esac
scripts/packages.sh "${tasks[@]}"
scripts/build.sh "$preset"
ctest --preset "$preset" -j "${JOBS:-$(nproc)}" --progress
[ -d ../shared/corpus/fo ] ||
    echo "../shared/corpus is not here: the tests ran over samples/ and not over its documents."

# A program cannot load a library built with sanitizers unless it is built so itself.
[ "$preset" = asan ] || scripts/test-package.sh "build/$preset"
