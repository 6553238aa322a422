#!/bin/bash
# Installs a build into a temporary prefix and builds an example of the guide outside the tree
# against it, and a program with each component that the build has: each against the shared and the
# static library, where the build has them, once through find_package(Forme) and once through
# pkg-config.
#   scripts/test-package.sh BUILD
# In the place of BUILD may stand a prefix where something is installed, or --installed for where the
# system looks for libraries.
set -euo pipefail
cd "$(dirname "$0")/.."

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -r tests/consumer "$work/consumer"
cp docs/examples/edit.cpp "$work/consumer"

quietly() {
    "$@" >"$work/log" 2>&1 || { cat "$work/log"; exit 1; }
}

if [ "$1" = --installed ]; then
    forme=$(command -v forme)
    include=$(pkg-config --variable=includedir forme)
    library=$(pkg-config --variable=libdir forme)
else
    prefix=$(realpath "$1")
    if [ -e "$1/CMakeCache.txt" ]; then
        prefix=$work/prefix
        quietly cmake --install "$1" --prefix "$prefix"
    fi
    forme=$(find "$prefix" -name forme -type f)
    include=$prefix/include
    library=$(dirname "$(find "$prefix" -name pkgconfig)")
    export CMAKE_PREFIX_PATH=$prefix PKG_CONFIG_PATH=$library/pkgconfig LD_LIBRARY_PATH=$library
fi

require_kind() { # KIND PROGRAM
    local kind=static
    [[ "$(ldd "$2")" != *libforme* ]] || kind=shared
    [ $kind = "$1" ] || { echo "$2 is linked to the $kind library."; exit 1; }
}

run_programs() { # FOLDER
    "$1/edit" samples/letter.xml "$work/out.xml" >/dev/null
    ! cmp -s samples/letter.xml "$work/out.xml" || { echo "The letter was not changed."; exit 1; }
    for program in html spelling unicode; do
        [ ! -e "$1/$program" ] || "$1/$program" samples/letter.xml >/dev/null
    done
    (cd "$1" && echo "ok:" $(ls))
}

# Unquoted below: what pkg-config prints is a list of arguments.
by_pkg_config() { # PROGRAM MODULE FOLDER ARGUMENT...
    [ -e "$library/pkgconfig/$2.pc" ] || return 0
    mkdir -p "$3"
    quietly ${CXX:-g++} -std=c++20 "$work/consumer/$1.cpp" -o "$3/$1" "${@:4}" \
        $(pkg-config "${@:4}" --cflags --libs "$2")
}

through_cmake() { # FOLDER [KIND]
    quietly cmake -S "$work/consumer" -B "$work/build" -G Ninja -DKIND="${2:-}" \
        -DCMAKE_RUNTIME_OUTPUT_DIRECTORY="$1"
    quietly cmake --build "$work/build"
    run_programs "$1"
}

through_pkg_config() { # FOLDER ARGUMENT...
    by_pkg_config edit forme "$@"
    by_pkg_config html forme-html "$@"
    by_pkg_config spelling forme-hunspell "$@"
    by_pkg_config unicode forme-unicode "$@"
    run_programs "$1"
}

kind=static
[ ! -e "$library/libforme.so" ] || kind=shared
echo "Programs with the $kind library, through find_package(Forme):"
through_cmake "$work/plain"
require_kind $kind "$work/plain/edit"
echo "The same through pkg-config:"
through_pkg_config "$work/plain-by-pkg-config"
if [ -e "$library/libforme.a" ]; then
    echo "Programs with the static library, through find_package(Forme COMPONENTS static):"
    through_cmake "$work/static" _static
    require_kind static "$work/static/edit"
    echo "Programs with nothing but static libraries, through pkg-config --static:"
    through_pkg_config "$work/static-by-pkg-config" --static
fi

echo "All the headers, with nothing but what is installed:"
(cd "$include" && find forme -name '*.h' -printf '#include <%p>\n') >"$work/all.cpp"
${CXX:-g++} -std=c++20 -fsyntax-only $(pkg-config --cflags forme) "$work/all.cpp" && echo "ok"

echo "The installed program:"
"$forme" run samples/letter.xml samples/letter-demo.jsonl >/dev/null && echo "ok"
