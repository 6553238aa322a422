#!/bin/bash
# Builds and installs the library, its headers and the program `forme`.
#   scripts/install.sh [PREFIX]   /usr/local, unless told otherwise
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/packages.sh build html spelling unicode
scripts/build.sh release forme forme_cli
cmake --install build/release --prefix "${1:-/usr/local}"
# So that a program finds the library where the system looks for such.
[ "$(id -u)" != 0 ] || ldconfig
