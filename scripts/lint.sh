#!/bin/bash
# Checks the format of all sources and runs clang-tidy over those of the library and its hosts.
# ANALYZER_NODES sets how far clang's analyzer follows the paths through one function. A tenth of
# what it does by itself, 225000, takes a third of the time.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/packages.sh build html spelling unicode terminal clang lint

check_format() {
    find src host examples tests bench docs -name node_modules -prune -o \( -name '*.h' -o -name '*.cpp' \) -print | sort |
        xargs clang-format --dry-run -Werror
}

# Configures the preset into a build of its own and makes there what clang-tidy reads besides the
# sources: the precompiled headers, if there are any.
configure() {
    local build=$1
    shift
    cmake --preset lint -B "$build" "$@" >"$build.log" || { cat "$build.log" >&2; return 1; }
    ninja -C "$build" -t targets all | { grep -o '^[^:]*\.pch' || true; } |
        xargs -r ninja -C "$build" >"$build.log" || { cat "$build.log" >&2; return 1; }
}

# The sources as that build compiles them, the longest first.
sources_in() {
    sed -n 's/^ *"file": "\(.*\.c[px][px]\)".*/\1/p' "$1/compile_commands.json" |
        { grep -v cmake_pch || true; } | xargs ls -S
}

# Each source's output comes at once, so that those of two processes do not mix.
check_each() {
    local build=$1
    shift
    sources_in "$build" | xargs -P "${JOBS:-$(nproc)}" -n 1 bash -c '
        output=$(clang-tidy --quiet -p "$0" "$@" 2>&1) || { echo "$output"; exit 1; }' "$build" "$@"
}

analyzer=(-Xclang -analyzer-config -Xclang "max-nodes=${ANALYZER_NODES:-22500}")

# Most checks walk through all that a source includes, so that they take a fifth of the time where the
# sources of a folder are compiled as one. The rest look at nothing but the source that is compiled.
own='clang-analyzer-*,misc-unused-using-decls,misc-unused-alias-decls,bugprone-suspicious-include'
check_code() {
    configure build/lint && configure build/lint-folders -DCMAKE_UNITY_BUILD=ON || return
    local failed=
    check_each build/lint-folders --checks="-${own//,/,-}" || failed=1
    check_each build/lint --checks="-*,$own" "${analyzer[@]/#/--extra-arg=}" || failed=1
    [ -z "$failed" ]
}

# Both are run whatever the other says.
failed=
check_format && echo "The format is right." || failed=1
check_code && echo "clang-tidy has nothing to say." || failed=1
[ -z "$failed" ]
