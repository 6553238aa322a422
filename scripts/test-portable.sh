#!/bin/bash
# Builds the library for other libraries than those of GNU. With libc++ it runs all tests; on musl,
# by Emscripten and with libc++ again, it runs the self checks and an example of the guide in Node.
#   scripts/test-portable.sh [libc++|musl]    both, unless told otherwise
set -euo pipefail
cd "$(dirname "$0")/.."

work=$PWD/build/portable
mkdir -p "$work"

quietly() {
    "$@" >"$work/log" 2>&1 || { tail -50 "$work/log"; exit 1; }
}

build() { # FOLDER SOURCE ARGUMENT...
    quietly "${wrapper[@]}" cmake -S "$2" -B "$1" -G Ninja "${@:3}"
    quietly cmake --build "$1" -j "${JOBS:-$(nproc)}"
}

# Hunspell's own interface is that of GNU's library.
test_libcxx() {
    wrapper=()
    local with=(-DCMAKE_CXX_COMPILER=clang++ -DCMAKE_CXX_FLAGS=-stdlib=libc++)
    scripts/packages.sh build html unicode test clang libc++
    build "$work/googletest" /usr/src/googletest "${with[@]}" -DBUILD_GMOCK=OFF \
        -DCMAKE_INSTALL_PREFIX="$work/prefix"
    quietly cmake --install "$work/googletest"
    build "$work/libc++" . "${with[@]}" -DCMAKE_PREFIX_PATH="$work/prefix" -DCMAKE_BUILD_TYPE=Debug \
        -DCMAKE_UNITY_BUILD=ON -DFORME_HUNSPELL=OFF
    ctest --test-dir "$work/libc++" -j "${JOBS:-$(nproc)}" --output-on-failure --progress
}

# Expat's sources, which Emscripten does not bring, from the archive of Debian's sources. Only the
# authors' part of the package is used.
fetch_expat() {
    [ ! -e "$work/expat/expat/lib/xmlparse.c" ] || return 0
    mkdir -p "$work"/apt/{lists,cache}/partial "$work/expat"
    sed 's/^Types: deb$/Types: deb-src/; s/^deb /deb-src /' /etc/apt/sources.list.d/debian.sources \
        >"$work/apt/debian.sources"
    local apt=(apt-get -qq -o Dir::Etc::sourcelist="$work/apt/debian.sources"
               -o Dir::Etc::sourceparts=/dev/null -o Dir::State::lists="$work/apt/lists"
               -o Dir::Cache="$work/apt/cache")
    quietly "${apt[@]}" update
    (cd "$work/apt" && "${apt[@]}" source --download-only expat >"$work/log" 2>&1) || true
    tar --extract --file="$(ls "$work"/apt/expat_*.orig.tar.gz)" --directory="$work/expat" \
        --strip-components=1
}

test_musl() {
    wrapper=(emcmake)
    scripts/packages.sh build emscripten
    fetch_expat
    # Where Debian's Node looks by itself, for what Emscripten's tools need.
    export NODE_PATH=/usr/share/nodejs
    local prefix=$work/musl-prefix
    local with=(-DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$prefix"
                -DCMAKE_C_FLAGS=-fwasm-exceptions -DCMAKE_CXX_FLAGS=-fwasm-exceptions
                -DEXPAT_LIBRARY="$prefix/lib/libexpat.a" -DEXPAT_INCLUDE_DIR="$prefix/include")
    build "$work/musl-expat" "$work/expat/expat" "${with[@]}" -DEXPAT_SHARED_LIBS=OFF \
        -DEXPAT_BUILD_TOOLS=OFF -DEXPAT_BUILD_EXAMPLES=OFF -DEXPAT_BUILD_TESTS=OFF -DEXPAT_BUILD_DOCS=OFF
    quietly cmake --install "$work/musl-expat"
    build "$work/musl" . "${with[@]}" -DCMAKE_UNITY_BUILD=ON -DBUILD_SHARED_LIBS=OFF \
        -DFORME_{CLI,TESTS,HTML,HUNSPELL,UNICODE}=OFF
    quietly cmake --install "$work/musl"

    rm -rf "$work/consumer"
    cp -r tests/consumer "$work/consumer"
    cp docs/examples/edit.cpp "$work/consumer"
    build "$work/musl-consumer" "$work/consumer" "${with[@]}" -DForme_DIR="$prefix/lib/cmake/Forme" \
        -DCMAKE_EXE_LINKER_FLAGS="-sNODERAWFS=1 -sALLOW_MEMORY_GROWTH=1"
    # Emscripten takes the `fetch` that newer versions of Node have for a browser's.
    local node=(node --no-experimental-fetch)
    "${node[@]}" "$work/musl-consumer/selfcheck.js"
    "${node[@]}" "$work/musl-consumer/edit.js" samples/letter.xml "$work/letter.xml" >/dev/null
    grep -q proud "$work/letter.xml"
}

libraries=("$@")
[ $# -gt 0 ] || libraries=(libc++ musl)
for library in "${libraries[@]}"; do
    echo "With $library:"
    case $library in
        libc++) test_libcxx ;;
        musl) test_musl ;;
        *) echo "test-portable.sh: there is no test with '$library'" >&2; exit 1 ;;
    esac
    echo "ok"
done
