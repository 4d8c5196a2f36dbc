# Read by setup-wine.sh and setup-wine64.sh: prepares a private Wine in a folder. The reader sets
#   program              its own name
#   tools                Debian packages that must be installed on the system
#   wine_packages        packages that are unpacked into the folder
#   release              of Debian, that those are from; empty: the system's own
#   architectures        of those packages; the first one is Wine's own
#   arch loader server   WINEARCH, and the two programs below "root"
#   libraries            folders below "root", the one of the interpreter first
#   interpreter          file below "root"
# and the functions
#   arrange_root         makes $root of the packages in $get
#   fill_template C      what drive C: needs before Wine's first start
#   finish_template C    what it gets afterwards
#   check                proves that Wine works; says why and fails otherwise
# Afterwards the folder holds:
#   wine PROGRAM [ARG...]   runs a program; WINEPREFIX chooses the prefix (default: the template)
#   wineserver -k | -w      stops / waits for the processes of the prefix
#   new-prefix DIR          makes a fresh, isolated prefix in a tenth of a second
#   template                the prefix that new-prefix clones
# Everything lies below the folder; no foreign architecture is added to the system, and only missing
# Debian packages are installed. Finished steps are skipped, so running it again is quick and an
# interrupted run can be repeated. Parallel runs wait for each other.
# shellcheck shell=bash disable=SC2154

say() { echo "$program: $*"; }
die() { echo "$program: $*" >&2; exit 1; }

is_ready() { [ -f "$dir/checked" ] && [ -f "$dir/template/ready" ] && commands_are_current; }

# --- Wine and its libraries, unpacked but not installed --------------------------------------

# The system's own Debian sources, one "URI RELEASE COMPONENT KEY" per line.
# shellcheck disable=SC2016
debian_sources() {
    apt-get indextargets --format '$(REPO_URI) $(RELEASE) $(COMPONENT) $(SIGNED_BY)' \
        'Created-By: Packages' 2>/dev/null | sort -u
}

# Prints sources.list lines: same mirror and key as the system, but our release and architectures.
wine_sources() {
    local codename uri name component key option
    # shellcheck source=/dev/null
    codename=$(. /etc/os-release && echo "$VERSION_CODENAME")
    while read -r uri name component key; do
        [ "$name $component" = "$codename main" ] || continue
        case $uri in *debian/) ;; *) continue ;; esac       # not the sources of other makers
        option="arch=$(IFS=,; echo "${architectures[*]}")"
        case $key in /*) option+=" signed-by=$key" ;; esac
        echo "deb [$option] $uri ${release:-$codename} main"
    done < <(debian_sources)
}

# apt-get with all its state in $get, so that the system's package lists stay untouched.
private_apt() {
    local each known=()
    for each in "${architectures[@]}"; do known+=(-o "APT::Architectures::=$each"); done
    apt-get -o Dir::State="$get/state" -o Dir::Cache="$get/cache" \
        -o Dir::State::status="$get/status" -o Dir::Etc::sourcelist="$get/sources.list" \
        -o Dir::Etc::sourceparts="$get/empty" -o Dir::Etc::preferences="$get/empty/none" \
        -o Dir::Etc::preferencesparts="$get/empty" -o APT::Architecture="${architectures[0]}" \
        "${known[@]}" -o APT::Sandbox::User=root \
        -o Acquire::Languages=none -o Acquire::Retries=3 "$@"
}

unpack_wine() {
    get=$dir/get
    say "fetching Wine"
    rm -rf "$root" "$get"
    mkdir -p "$root" "$get/state/lists/partial" "$get/cache/archives/partial" "$get/empty"
    : > "$get/status"
    wine_sources > "$get/sources.list"
    [ -s "$get/sources.list" ] || die "apt knows no Debian source for main; check its configuration"
    (cd "$get" && private_apt update && private_apt download "${wine_packages[@]}")
    arrange_root
    rm -rf "$get"
    touch "$root/complete"
}

# unpack FOLDER PACKAGE-FILE...
unpack() {
    local folder=$1 package
    shift
    for package in "$@"; do
        dpkg-deb --fsys-tarfile "$package" |
            tar -x -C "$folder" --exclude='./usr/share/doc' --exclude='./usr/share/man'
    done
}

# slim FOLDER: no 16-bit programs, no debug information, which is two thirds of the size: every prefix
# holds all of it.
slim() {
    local file
    rm -f "$1"/*16 "$1"/*.vxd
    for file in "$1"/*; do
        strip "$file" 2> /dev/null || true
    done
}

# --- commands --------------------------------------------------------------------------------

commands_are_current() {
    local source
    [ "$(cat "$dir/location" 2>/dev/null)" = "$dir" ] || return 1
    for source in "${BASH_SOURCE[0]}" "$scripts/$program.sh"; do
        [ ! "$source" -nt "$dir/location" ] || return 1
    done
}

# The interpreter's path is written into Wine's programs, so a moved folder needs this again.
write_commands() {
    local each
    rm -f "$dir/location"
    for each in "$root/$loader" "$root/$server"; do
        [ "$(patchelf --print-interpreter "$each")" = "$root/$interpreter" ] ||
            patchelf --set-interpreter "$root/$interpreter" "$each"
    done
    # Wine's own fonts only: texts look the same on every machine.
    echo "<fontconfig><cachedir>$dir/fontcache</cachedir></fontconfig>" > "$dir/fonts.conf"
    write_wine_command
    write_new_prefix_command
    echo "$dir" > "$dir/location"
}

write_wine_command() {
    local path
    path=$(printf ':$dir/root/%s' "${libraries[@]}")
    cat > "$dir/wine" <<END
#!/bin/sh
dir=\$(cd "\$(dirname "\$0")" && pwd -P)
export LD_LIBRARY_PATH="${path#:}"
export WINELOADER="\$dir/root/$loader" WINESERVER="\$dir/root/$server"
export WINEARCH=$arch
END
    cat >> "$dir/wine" <<'END'
export FONTCONFIG_FILE="$dir/fonts.conf"
export WINEDEBUG="${WINEDEBUG:--all}"
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
    fill_template "$c"
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
    finish_template "$c"
    touch "$dir/template/ready"
}

# --- all of it -------------------------------------------------------------------------------

# on_display COMMAND...: prints what the Windows program prints, which may draw.
on_display() {
    # shellcheck disable=SC2016
    env -u WINEPREFIX xvfb-run -a sh -c 'wine=$1; shift; "$wine/wine" "$@"; "$wine/wineserver" -k' - "$dir" "$@" \
        9>&- | tr -d '\r'
}

# prepare FOLDER
prepare() {
    dir=$1
    mkdir -p "$dir"
    dir=$(cd "$dir" && pwd -P)
    root=$dir/root
    ! is_ready || return 0
    "$scripts/install-packages.sh" "${tools[@]}"
    # Descriptor 9 holds the lock; Wine's background server must not inherit it.
    exec 9> "$dir/lock"
    flock 9
    [ -f "$root/complete" ] || unpack_wine
    commands_are_current || write_commands
    [ -f "$dir/template/ready" ] || make_template
    if [ ! -f "$dir/checked" ]; then
        check
        touch "$dir/checked"
    fi
    say "ready: $dir/wine"
}
