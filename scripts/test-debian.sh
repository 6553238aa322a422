#!/bin/bash
# Builds the Debian packages from a copy of what the project holds, source and binary, with the tests
# in the build, and has lintian read them. Then it installs them, builds programs against them, and
# removes them. They are left in build/debian.
#   scripts/test-debian.sh
# DEB_BUILD_OPTIONS=nocheck leaves the tests out.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/packages.sh build html spelling unicode test debian
as_root=()
[ "$(id -u)" = 0 ] || as_root=(sudo)

rm -rf build/debian
mkdir -p build/debian/forme
git ls-files -z --cached --others --exclude-standard |
    tar --create --null --files-from=- | tar --extract --directory=build/debian/forme

echo "Building the packages:"
(cd build/debian/forme && dpkg-buildpackage --no-sign) >build/debian/build.log 2>&1 ||
    { tail -50 build/debian/build.log; exit 1; }
ls build/debian/*.deb build/debian/*.dsc

echo "Lintian:"
lintian --fail-on error,warning build/debian/*.changes
echo "ok"

packages=$(sed -n 's/^Package: //p' debian/control)
trap '"${as_root[@]}" dpkg --purge $packages >/dev/null' EXIT
for package in $packages; do
    set -- "$@" build/debian/"${package}"_*.deb
done
"${as_root[@]}" dpkg --install "$@" >/dev/null
scripts/test-package.sh --installed
