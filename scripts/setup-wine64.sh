#!/usr/bin/env bash
# setup-wine64.sh [FOLDER]: prepares a private 64-bit Wine on Debian 12 (amd64), in build/wine64 of this
# checkout unless told otherwise: a machine with two views of the registry, with System32 and SysWOW64,
# where a 32-bit program runs as on 64-bit Windows. Only newer Wines run 32-bit programs without 32-bit
# Linux libraries, so it comes from Debian 13, with the libraries that it needs.
# scripts/private-wine.sh says what the folder holds afterwards.
set -euo pipefail

scripts=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd -P)
. "$scripts/private-wine.sh"

program=setup-wine64
tools=(xvfb xauth patchelf binutils g++-mingw-w64-i686-win32 ca-certificates)
release=trixie
architectures=(amd64 i386)
wine_packages=(
    wine64 libwine libwine:i386 fonts-wine libz-mingw-w64
    libc6 libgcc-s1 libunwind8 liblzma5 zlib1g libudev1 libcap2
    libfreetype6 libpng16-16t64 libbrotli1 libfontconfig1 libexpat1
    libx11-6 libxcb1 libxau6 libxdmcp6 libbsd0 libmd0 libxext6 libxrender1
    libxfixes3 libxcursor1 libxi6 libxinerama1 libxrandr2 libxcomposite1 libxxf86vm1
    libdbus-1-3 libsystemd0 libxkbcommon0 libxkbregistry0
)
arch=win64
loader=usr/lib/wine/wine64
server=usr/lib/wine/wineserver
libraries=(usr/lib/x86_64-linux-gnu)
interpreter=usr/lib/x86_64-linux-gnu/ld-linux-x86-64.so.2

arrange_root() {
    local wine=$root/usr/lib/x86_64-linux-gnu/wine half=$get/i386
    unpack "$root" "$get"/*_amd64.deb "$get"/*_all.deb
    # Of the other half only what Windows programs see.
    mkdir "$half"
    unpack "$half" "$get"/libwine_*_i386.deb
    mv "$half/usr/lib/i386-linux-gnu/wine/i386-windows" "$wine/"
    cp "$root/usr/i686-w64-mingw32/lib/zlib1.dll" "$wine/i386-windows/"
    cp "$root/usr/x86_64-w64-mingw32/lib/zlib1.dll" "$wine/x86_64-windows/"
    slim "$wine/i386-windows"
    slim "$wine/x86_64-windows"
    mv "$root/usr/lib/wine/wineserver64" "$root/$server"    # over a script that looks in /usr/lib
    ln -s . "$root/usr/share/wine/wine"                     # where the server looks for its tables
}

fill_template() {                                           # user32 needs it
    mkdir "$1/windows/syswow64"
    cp "$root/usr/x86_64-w64-mingw32/lib/zlib1.dll" "$1/windows/system32/"
    cp "$root/usr/i686-w64-mingw32/lib/zlib1.dll" "$1/windows/syswow64/"
}

finish_template() { [ -f "$1/windows/syswow64/kernel32.dll" ] || die "the template prefix has no 32-bit side"; }

# A 32-bit program sees a 64-bit Windows, and can measure text on a display.
check() {
    local out
    cat > "$dir/check.c" <<'END'
#include <windows.h>
#include <stdio.h>
typedef BOOL (WINAPI *IsWow64)(HANDLE, BOOL *);
int main(void)
{
    SIZE s = {0, 0};
    BOOL wow = FALSE, ok = GetTextExtentPoint32A(GetDC(0), "text", 4, &s);
    IsWow64 ask = (IsWow64)(void *)GetProcAddress(GetModuleHandleA("kernel32.dll"), "IsWow64Process");
    if (ask) ask(GetCurrentProcess(), &wow);
    printf("%u-bit on %s Windows, text %s\n", (unsigned)sizeof(void *) * 8, wow ? "64-bit" : "32-bit",
           ok && s.cx > 0 ? "works" : "fails");
    return 0;
}
END
    i686-w64-mingw32-gcc-win32 -O1 "$dir/check.c" -o "$dir/check.exe" -lgdi32
    out=$(on_display "$dir/check.exe")
    [ "$out" = "32-bit on 64-bit Windows, text works" ] || die "the check program printed: $out"
}

[ $# -le 1 ] || die "usage: setup-wine64.sh [FOLDER]"
prepare "${1:-$scripts/../build/wine64}"
