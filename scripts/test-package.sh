#!/bin/bash
# Installs a build into a temporary prefix and builds an example of the guide outside the tree
# against it, once through find_package(Forme) and once through pkg-config; the same for a program
# with each component that the build has.
#   scripts/test-package.sh BUILD
set -euo pipefail
cd "$(dirname "$0")/.."

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -r tests/consumer "$work/consumer"
cp docs/examples/edit.cpp "$work/consumer"
prefix=$work/prefix
cmake --install "$1" --prefix "$prefix" >"$work/install.log" || { cat "$work/install.log"; exit 1; }

echo "A program through find_package(Forme):"
cmake -S "$work/consumer" -B "$work/build" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" >"$work/configure.log" ||
    { cat "$work/configure.log"; exit 1; }
cmake --build "$work/build" >"$work/build.log" || { cat "$work/build.log"; exit 1; }
"$work/build/consumer" samples/letter.xml "$work/out.xml"
cmp -s samples/letter.xml "$work/out.xml" && { echo "The letter was not changed."; exit 1; }

echo "The same program through pkg-config:"
library=$(dirname "$(find "$prefix" -name libforme.so)")
export PKG_CONFIG_PATH=$library/pkgconfig
# Unquoted: what pkg-config prints is a list of arguments.
${CXX:-g++} -std=c++20 "$work/consumer/edit.cpp" -o "$work/by-pkg-config" \
    $(pkg-config --cflags --libs forme)
LD_LIBRARY_PATH=$library "$work/by-pkg-config" samples/letter.xml "$work/out.xml"

with_component() { # COMPONENT PROGRAM
    [ -e "$library/pkgconfig/forme-$1.pc" ] || return 0
    echo "A program with the component $1, in both ways:"
    "$work/build/$2" samples/letter.xml
    ${CXX:-g++} -std=c++20 "$work/consumer/$2.cpp" -o "$work/$2-by-pkg-config" \
        $(pkg-config --cflags --libs "forme-$1")
    LD_LIBRARY_PATH=$library "$work/$2-by-pkg-config" samples/letter.xml
}
with_component html html
with_component hunspell spelling

echo "All the headers, with nothing but what is installed:"
(cd "$prefix/include" && find forme -name '*.h' -printf '#include <%p>\n') >"$work/all.cpp"
${CXX:-g++} -std=c++20 -fsyntax-only $(pkg-config --cflags forme) "$work/all.cpp" && echo "ok"

echo "The installed program:"
"$prefix/bin/forme" run samples/letter.xml samples/letter-demo.jsonl >/dev/null && echo "ok"
