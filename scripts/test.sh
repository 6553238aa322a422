#!/bin/bash
# Builds everything and runs all tests, then builds a program against the installed package.
#   scripts/test.sh [PRESET]      debug (without an argument), release or asan
set -euo pipefail
cd "$(dirname "$0")/.."

preset=${1:-debug}
scripts/packages.sh build test bench
[ "$preset" != asan ] || scripts/packages.sh clang
scripts/build.sh "$preset"
ctest --preset "$preset" -j "${JOBS:-$(nproc)}" --progress

# A program cannot load a library built with sanitizers unless it is built so itself.
[ "$preset" = asan ] || scripts/test-package.sh "build/$preset"
