#!/bin/bash
# Runs the recipes for vcpkg and Conan, with stand-ins for their functions where these are not
# installed, and builds programs against what comes of it. Whether the packages that the recipes
# name are in the registries is not checked.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/packages.sh build html spelling unicode test
python3 -c 'compile(open("packaging/conan/test_package/conanfile.py").read(), "test_package", "exec")'

echo "The recipe for Conan, shared:"
python3 tests/recipes/run_conanfile.py "$PWD/build/recipes/conan" shared

echo "The port for vcpkg, static:"
cmake -DWORK="$PWD/build/recipes/vcpkg" -DLINKAGE=static -P tests/recipes/run-portfile.cmake
scripts/test-package.sh build/recipes/vcpkg/packages/forme
