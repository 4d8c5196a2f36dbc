#!/usr/bin/env bash
# Prepares a private 32-bit Wine on Debian 12 (amd64).
#   scripts/setup-wine.sh [FOLDER]     default: build/wine of this checkout
# Afterwards FOLDER holds:
#   wine PROGRAM [ARG...]   runs a program; WINEPREFIX chooses the prefix (default: the template)
#   wineserver -k | -w      stops / waits for the processes of the prefix
#   new-prefix DIR          makes a fresh, isolated prefix in a tenth of a second
#   template                the prefix that new-prefix clones
# Everything lies below FOLDER; no foreign architecture is added to the system, and only missing
# Debian packages are installed. Finished steps are skipped, so running it again is quick and an
# interrupted run can be repeated. Parallel runs wait for each other.
set -euo pipefail

scripts=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd -P)

say() { echo "setup-wine: $*"; }
die() { echo "setup-wine: $*" >&2; exit 1; }

is_ready() { [ -f "$dir/checked" ] && [ -f "$dir/template/ready" ] && commands_are_current; }

# --- the 32-bit Wine and its libraries, unpacked but not installed ---------------------------

wine_packages=(
    wine32 libwine fonts-wine libz-mingw-w64
    libc6 libgcc-s1 libunwind8 liblzma5 zlib1g libudev1 libcap2
    libfreetype6 libpng16-16 libbrotli1 libfontconfig1 libexpat1
    libx11-6 libxcb1 libxau6 libxdmcp6 libbsd0 libmd0 libxext6 libxrender1
    libxfixes3 libxcursor1 libxi6 libxinerama1 libxrandr2 libxcomposite1 libdbus-1-3
    libsystemd0 libgcrypt20 libgpg-error0 liblz4-1 libzstd1
)

# The system's own Debian sources, one "URI RELEASE COMPONENT KEY" per line.
# shellcheck disable=SC2016
debian_sources() {
    apt-get indextargets --format '$(REPO_URI) $(RELEASE) $(COMPONENT) $(SIGNED_BY)' \
        'Created-By: Packages' 2>/dev/null | sort -u
}

# Prints sources.list lines: same mirror and key as the system, but architecture i386.
i386_sources() {
    local codename uri release component key option
    # shellcheck source=/dev/null
    codename=$(. /etc/os-release && echo "$VERSION_CODENAME")
    while read -r uri release component key; do
        [ "$release $component" = "$codename main" ] || continue
        case $uri in *debian/) ;; *) continue ;; esac       # not the sources of other makers
        option=arch=i386
        case $key in /*) option+=" signed-by=$key" ;; esac
        echo "deb [$option] $uri $release main"
    done < <(debian_sources)
}

# apt-get with all its state in $get, so that the system's package lists stay untouched.
private_apt() {
    apt-get -o Dir::State="$get/state" -o Dir::Cache="$get/cache" \
        -o Dir::State::status="$get/status" -o Dir::Etc::sourcelist="$get/sources.list" \
        -o Dir::Etc::sourceparts="$get/empty" -o Dir::Etc::preferences="$get/empty/none" \
        -o Dir::Etc::preferencesparts="$get/empty" -o APT::Architecture=i386 \
        -o APT::Architectures=i386 -o APT::Sandbox::User=root \
        -o Acquire::Languages=none -o Acquire::Retries=3 "$@"
}

unpack_wine() {
    local get=$dir/get package file
    say "fetching the 32-bit Wine"
    rm -rf "$root" "$get"
    mkdir -p "$root" "$get/state/lists/partial" "$get/cache/archives/partial" "$get/empty"
    : > "$get/status"
    i386_sources > "$get/sources.list"
    [ -s "$get/sources.list" ] || die "apt knows no Debian source for main; check its configuration"
    (cd "$get" && private_apt update && private_apt download "${wine_packages[@]}")
    for package in "$get"/*.deb; do
        dpkg-deb --fsys-tarfile "$package" |
            tar -x -C "$root" --exclude='./usr/share/doc' --exclude='./usr/share/man'
    done
    (
        cd "$root/usr/lib/i386-linux-gnu/wine/i386-windows"
        rm -f ./*16 ./*.vxd                                 # no 16-bit programs here
        cp "$root/usr/i686-w64-mingw32/lib/zlib1.dll" .
        # Debug information is two thirds of the size, and every prefix holds all of it.
        for file in *; do
            i686-w64-mingw32-strip "$file" 2>/dev/null || true
        done
    )
    rm -rf "$root/usr/lib/i386-linux-gnu/wine/x86_64-windows"
    mv "$root/usr/lib/wine/wineserver32" "$root/usr/lib/wine/wineserver"
    rm -rf "$get"
    touch "$root/complete"
}

# --- commands --------------------------------------------------------------------------------

commands_are_current() {
    [ "$(cat "$dir/location" 2>/dev/null)" = "$dir" ] && [ ! "${BASH_SOURCE[0]}" -nt "$dir/location" ]
}

# The loader's path is written into Wine's programs, so a moved folder needs this again.
write_commands() {
    local program loader=$root/lib/ld-linux.so.2
    rm -f "$dir/location"
    for program in "$root/usr/lib/wine/wine" "$root/usr/lib/wine/wineserver"; do
        [ "$(patchelf --print-interpreter "$program")" = "$loader" ] ||
            patchelf --set-interpreter "$loader" "$program"
    done
    # Wine's own fonts only: texts look the same on every machine.
    echo "<fontconfig><cachedir>$dir/fontcache</cachedir></fontconfig>" > "$dir/fonts.conf"
    write_wine_command
    write_new_prefix_command
    echo "$dir" > "$dir/location"
}

write_wine_command() {
    cat > "$dir/wine" <<'END'
#!/bin/sh
dir=$(cd "$(dirname "$0")" && pwd -P)
export LD_LIBRARY_PATH="$dir/root/usr/lib/i386-linux-gnu:$dir/root/lib/i386-linux-gnu"
export WINELOADER="$dir/root/usr/lib/wine/wine" WINESERVER="$dir/root/usr/lib/wine/wineserver"
export FONTCONFIG_FILE="$dir/fonts.conf"
export WINEARCH=win32 WINEDEBUG="${WINEDEBUG:--all}"
export WINEPREFIX="${WINEPREFIX:-$dir/template}"
# No set-up dialogs for parts that are not there, no menu entries in the home folder.
export WINEDLLOVERRIDES="${WINEDLLOVERRIDES:-mscoree=;mshtml=;winemenubuilder.exe=d}"
case $0 in *wineserver) exec "$WINESERVER" "$@" ;; esac
exec "$WINELOADER" "$@"
END
    chmod +x "$dir/wine"
    ln -sf wine "$dir/wineserver"
}

write_new_prefix_command() {
    cat > "$dir/new-prefix" <<'END'
#!/bin/sh
# new-prefix DIR: clones the template. System libraries are hard links (replace them if need be,
# never write into them); registry and *.ini files are copies. Drive Z: is left out, so that C: is
# the only drive a scan can walk.
set -eu
template=$(cd "$(dirname "$0")" && pwd -P)/template
if [ -e "$1" ] && [ ! -d "$1/drive_c" ] && [ -n "$(ls -A "$1")" ]; then
    echo "new-prefix: $1 is something else than a prefix; not replacing it" >&2
    exit 1
fi
rm -rf "$1"
mkdir -p "$(dirname "$1")"
cp -al "$template" "$1" 2>/dev/null || { rm -rf "$1"; cp -a "$template" "$1"; }
cd "$1"
rm -f ready dosdevices/z:
for file in *.reg drive_c/windows/*.ini; do
    [ ! -f "$file" ] || cp --remove-destination -p "$template/$file" "$file"
done
# Names the folder of Wine's server in /tmp; one of another user is of no use.
server=/tmp/$(cat wineserver 2>/dev/null || :)
[ ! -e "$server" ] || [ -O "$server" ] || rm -f wineserver
END
    chmod +x "$dir/new-prefix"
}

# --- template prefix -------------------------------------------------------------------------

make_template() {
    local c=$dir/template/drive_c link
    say "creating the template prefix"
    unset DISPLAY WINEPREFIX WINEDLLOVERRIDES
    [ ! -d "$dir/template" ] || "$dir/wineserver" -k || true
    rm -rf "$dir/template"
    mkdir -p "$c/windows/system32" "$c/windows/Fonts"
    cp "$root/usr/i686-w64-mingw32/lib/zlib1.dll" "$c/windows/system32/"    # user32 needs it
    cp "$root"/usr/share/wine/fonts/* "$c/windows/Fonts/"
    "$dir/wine" wineboot -i 9>&-
    "$dir/wineserver" -w
    # Plain user folders instead of links into the home folder.
    find "$c/users" -type l | while read -r link; do
        rm "$link"
        mkdir "$link"
    done
    # A crash ends the program instead of waiting in a dialog. The virtual desktop gives windows
    # title bars and the keyboard focus without a window manager.
    cat > "$c/set.reg" <<'END'
REGEDIT4

[HKEY_CURRENT_USER\Software\Wine\WineDbg]
"ShowCrashDialog"=dword:00000000

[HKEY_CURRENT_USER\Software\Wine\Explorer]
"Desktop"="Default"

[HKEY_CURRENT_USER\Software\Wine\Explorer\Desktops]
"Default"="1024x768"
END
    "$dir/wine" regedit /S 'C:\set.reg' 9>&-
    "$dir/wineserver" -w
    rm -f "$c/set.reg"
    cp "$c/windows/regedit.exe" "$c/windows/system32/regedt32.exe"          # Wine has none
    touch "$dir/template/ready"
}

# --- proof -----------------------------------------------------------------------------------

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
    # shellcheck disable=SC2016
    out=$(env -u WINEPREFIX xvfb-run -a sh -c '"$1/wine" "$1/check.exe"; "$1/wineserver" -k' - "$dir" 9>&- |
        tr -d '\r')
    [ "$out" = "32-bit, text works" ] || die "the check program printed: $out"
    touch "$dir/checked"
}

main() {
    [ $# -le 1 ] || die "usage: setup-wine.sh [FOLDER]"
    dir=${1:-$scripts/../build/wine}
    mkdir -p "$dir"
    dir=$(cd "$dir" && pwd -P)
    root=$dir/root
    ! is_ready || return 0
    "$scripts/install-packages.sh" xvfb xauth patchelf g++-mingw-w64-i686-win32 libz-mingw-w64-dev ca-certificates
    # Descriptor 9 holds the lock; Wine's background server must not inherit it.
    exec 9> "$dir/lock"
    flock 9
    [ -f "$root/complete" ] || unpack_wine
    commands_are_current || write_commands
    [ -f "$dir/template/ready" ] || make_template
    [ -f "$dir/checked" ] || check
    say "ready: $dir/wine"
}

main "$@"
