#!/bin/bash
# Writes the API reference to build/docs/html.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/packages.sh docs
mkdir -p build/docs
doxygen docs/Doxyfile
echo "build/docs/html/index.html"
