#!/usr/bin/env bash
# setup-wine.sh [FOLDER]: prepares a private 32-bit Wine on Debian 12 (amd64), in build/wine of this
# checkout unless told otherwise. scripts/private-wine.sh says what the folder holds afterwards.
set -euo pipefail

scripts=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd -P)
. "$scripts/private-wine.sh"

program=setup-wine
tools=(xvfb xauth patchelf binutils g++-mingw-w64-i686-win32 libz-mingw-w64-dev ca-certificates)
release=
architectures=(i386)
wine_packages=(
    wine32 libwine fonts-wine libz-mingw-w64
    libc6 libgcc-s1 libunwind8 liblzma5 zlib1g libudev1 libcap2
    libfreetype6 libpng16-16 libbrotli1 libfontconfig1 libexpat1
    libx11-6 libxcb1 libxau6 libxdmcp6 libbsd0 libmd0 libxext6 libxrender1
    libxfixes3 libxcursor1 libxi6 libxinerama1 libxrandr2 libxcomposite1 libdbus-1-3
    libsystemd0 libgcrypt20 libgpg-error0 liblz4-1 libzstd1
)
arch=win32
loader=usr/lib/wine/wine
server=usr/lib/wine/wineserver
libraries=(usr/lib/i386-linux-gnu lib/i386-linux-gnu)
interpreter=lib/ld-linux.so.2

arrange_root() {
    local wine=$root/usr/lib/i386-linux-gnu/wine
    unpack "$root" "$get"/*.deb
    cp "$root/usr/i686-w64-mingw32/lib/zlib1.dll" "$wine/i386-windows/"
    slim "$wine/i386-windows"
    rm -rf "$wine/x86_64-windows"
    mv "$root/usr/lib/wine/wineserver32" "$root/$server"
}

fill_template() { cp "$root/usr/i686-w64-mingw32/lib/zlib1.dll" "$1/windows/system32/"; }  # user32 needs it

finish_template() { cp "$1/windows/regedit.exe" "$1/windows/system32/regedt32.exe"; }      # Wine has none

# A 32-bit program can measure text on a display: broken font or graphics libraries show here.
check() {
    local out
    cat > "$dir/check.c" <<'END'
#include <windows.h>
#include <stdio.h>
int main(void)
{
    SIZE s = {0, 0};
    BOOL ok = GetTextExtentPoint32A(GetDC(0), "text", 4, &s);
    printf("%u-bit, text %s\n", (unsigned)sizeof(void *) * 8, ok && s.cx > 0 ? "works" : "fails");
    return 0;
}
END
    i686-w64-mingw32-gcc-win32 -O1 "$dir/check.c" -o "$dir/check.exe" -lgdi32
    out=$(on_display "$dir/check.exe")
    [ "$out" = "32-bit, text works" ] || die "the check program printed: $out"
}

[ $# -le 1 ] || die "usage: setup-wine.sh [FOLDER]"
prepare "${1:-$scripts/../build/wine}"
