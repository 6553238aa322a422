#!/bin/bash
# Installs the Debian packages that a task needs and that are missing.
#   scripts/packages.sh build|html|spelling|unicode|terminal|test|formatter|bench|peers|clang|lint|docs
#   or debian|libc++|emscripten|web|test-web ...
set -euo pipefail

packages_for() {
    case "$1" in
        build) echo g++ cmake ninja-build libexpat1-dev nlohmann-json3-dev libcli11-dev ;;
        html) echo pkg-config libgumbo-dev ;;
        spelling) echo pkg-config libhunspell-dev ;;
        unicode) echo pkg-config libicu-dev ;;
        terminal) echo libncurses-dev ;;
        test) echo unicode-data libgtest-dev pkg-config hunspell-en-us hunspell-de-de ;;
        formatter) echo fop ;;
        bench) echo libbenchmark-dev ;;
        peers) echo qt6-base-dev ;;
        clang) echo clang libclang-rt-dev llvm ;;
        lint) echo clang-format clang-tidy ;;
        docs) echo doxygen ;;
        libc++) echo libc++-dev libc++abi-dev ;;
        emscripten) echo emscripten nodejs ;;
        debian) echo debhelper dpkg-dev lintian ;;
        web) echo cmake ninja-build emscripten nlohmann-json3-dev hunspell-en-us hunspell-en-gb hunspell-de-de
             command -v npm >/dev/null || echo npm ;;
        test-web) echo chromium poppler-utils fonts-liberation ;;
        *) echo "packages.sh: no task is called '$1'" >&2; return 1 ;;
    esac
}

is_installed() {
    [ "$(dpkg-query --show --showformat='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        echo "To install them, run as root: $*" >&2
        return 1
    fi
}

if ! command -v dpkg-query >/dev/null; then
    echo "No Debian here: the tools are taken as installed."
    exit 0
fi

missing=()
for task in "$@"; do
    wanted=$(packages_for "$task")
    for package in $wanted; do
        is_installed "$package" || missing+=("$package")
    done
done
if [ ${#missing[@]} -gt 0 ]; then
    echo "Installing what is missing: ${missing[*]}"
    export DEBIAN_FRONTEND=noninteractive
    as_root apt-get update -qq
    as_root apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
fi
