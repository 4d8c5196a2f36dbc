#!/usr/bin/env bash
# Installs the Debian packages that building and testing need, as far as they are missing.
#   scripts/install-packages.sh              everything
#   scripts/install-packages.sh PACKAGE...   only these
# Needs root (or sudo) only when something is missing; without either it prints the command to run.
set -euo pipefail

everything=(
    cmake ninja-build
    g++ zlib1g-dev doctest-dev pkg-config           # native build and tests
    libhivex-dev libcreg-dev libbfio-dev            # registries of machines that do not run
    g++-mingw-w64-i686-win32 libz-mingw-w64-dev     # Windows build
    fp-utils python3                                # compiles the help; judges it
    nsis strace                                     # the set-up; the help at a fixed time
    clang-format
    xvfb xauth patchelf                             # private Wine and its display
    imagemagick attr                                # screenshots, DOS file attributes
    locales                                         # Windows of other languages
    parallel man-db dpkg-dev                        # many disks at a time, the package and its page
    ca-certificates
)

missing_of() {
    local package
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q '^install ok installed$' || echo "$package"
    done
}

as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

main() {
    local missing
    [ $# -gt 0 ] || set -- "${everything[@]}"
    mapfile -t missing < <(missing_of "$@")
    [ ${#missing[@]} -gt 0 ] || return 0
    if [ "$(id -u)" != 0 ] && ! command -v sudo >/dev/null; then
        echo "install-packages: packages are missing and this user cannot install them. As root, run:" >&2
        echo "  apt-get update && apt-get install -y --no-install-recommends ${missing[*]}" >&2
        exit 1
    fi
    echo "install-packages: installing ${missing[*]}"
    # A single unreadable source must not stop the rest; the installation itself decides.
    as_root apt-get update || echo "install-packages: some package lists could not be read; going on" >&2
    as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends "${missing[@]}"
}

main "$@"
