#!/usr/bin/env bash
# The set-up: what it installs, keeps and takes away again, on machines of their own, compared with what
# they were before. Unattended; the pages are looked at by hand.
set -euo pipefail

project=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd -P)
. "$project/scripts/display.sh"
work=$(mktemp -d)
failures=0
uninstall_key='HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Scourwell'
cd "$work"

wine() { "$project/scripts/wine" "$@" 2> /dev/null; }

clean_up() {
    if [ -n "${WINEPREFIX:-}" ]; then wine --kill || true; fi
    stop_display
    rm -rf "$work"
}
trap clean_up EXIT

complain() {
    echo "installer: $*"
    failures=$((failures + 1))
}

# setup FILE [OPTION...]: its exit status.
setup() {
    local status=0 file=$1
    shift
    cp "$file" "$drive/setup.exe"
    wine 'C:\setup.exe' /S "$@" < /dev/null > /dev/null || status=$?
    rm -f "$drive/setup.exe"
    echo $status
}

# Works in a copy of itself, so the call returns before it is done.
remove() {
    local tries
    wine "$place\\Uninstall.exe" /S "$@" < /dev/null > /dev/null || true
    for ((tries = 0; tries < 200; tries++)); do
        [ -e "$folder/Uninstall.exe" ] || break
        sleep 0.1
    done
    sleep 1
}

value() { wine reg query "$1" /v "$2" | tr -d '\r' | sed -nE "s/^ +$2 +REG_[A-Z]+ +//p"; }

# new_machine NAME [64|win98]
new_machine() {
    local programs='Program Files'
    if [ -n "${WINEPREFIX:-}" ]; then wine --kill; fi
    unset SCOURWELL_WINE
    if [ "${2:-}" = 64 ]; then
        programs='Program Files (x86)'
        export SCOURWELL_WINE=64
        "$project/scripts/setup-wine64.sh"
    fi
    export WINEPREFIX=$work/$1
    "$project/build/wine${SCOURWELL_WINE:-}/new-prefix" "$WINEPREFIX"
    drive=$WINEPREFIX/drive_c
    place="C:\\$programs\\Scourwell"
    folder=$drive/$programs/Scourwell
    wine cmd /c exit
    [ "${2:-}" != win98 ] || wine reg add 'HKCU\Software\Wine' /v Version /d win98 /f > /dev/null
}

# What the machine is, by files and registry. Wine writes its registry when it ends.
take_snapshot() {
    wine --kill
    "$project/tests/machines/snapshot" "$WINEPREFIX" "$1"
}

same_machine() {
    python3 - "$1" "$2" << 'END'
import json, re, sys
before, after = (json.load(open(name)) for name in sys.argv[1:])
# Wine's own book-keeping, and the times of folders that things lay in.
OWN = re.compile(r"(users/[^/]+/(Temp|AppData/Local/Temp)|windows/temp|ProgramData/Microsoft/Windows/Caches)(/|$)", re.I)
NOISE = re.compile(r"Explorer\\(SessionInfo|StartPage|RecentDocs)|CurrentVersion\\Explorer\\(Shell|User Shell) Folders|Control\\Class\\|Enum\\", re.I)
def tree(snapshot):
    return {path: [what[0], what[2]] for path, what in snapshot["tree"].items() if not OWN.search(path)}
def keys(snapshot):
    # The uninstaller works in a copy of itself, which goes at the next start of Windows.
    return {key: [value for value in values if "~nsu" not in value]
            for key, values in snapshot["registry"].items() if not NOISE.search(key)}
wrong = []
for name, part in (("file", tree), ("key", keys)):
    old, new = part(before), part(after)
    wrong += [f"{name} left: {each}" for each in new.keys() - old.keys()]
    wrong += [f"{name} gone: {each}" for each in old.keys() - new.keys()]
    wrong += [f"{name} changed: {each}: {old[each]} {new[each]}" for each in old.keys() & new.keys() if old[each] != new[each]]
print("\n".join(wrong))
sys.exit(bool(wrong))
END
}

# A set-up of the program as it was built, and one that calls itself older, with older definitions.
make_setups() {
    cp -R "$project/out/Scourwell" "$work/program"
    "$project/scripts/make-setup" "$work/program" "$work/lists" "$work/current.exe" > make.log
    SETUP_VERSION=0.9.0 "$project/scripts/make-setup" "$work/program" "$work/lists" "$work/older.exe" > make.log
    size=$(stat -c %s "$work/current.exe")
    head -c $((size * 2 / 3)) "$work/current.exe" > "$work/cut.exe"
}

installs_and_leaves_nothing() {
    new_machine plain
    take_snapshot before
    [ "$(setup cut.exe)" != 0 ] || complain "a set-up that was cut short says that all is well"
    [ ! -e "$folder" ] || complain "a set-up that was cut short installs something"
    [ "$(setup current.exe)" = 0 ] || complain "the set-up fails"
    diff -r "$project/out/Scourwell" "$folder" | grep -v '^Only in .*: Uninstall.exe$' && complain "it installs something else"
    [ "$(value "$uninstall_key" DisplayVersion)" = "$(sed -nE 's/^project\(Scourwell VERSION ([0-9.]+) .*/\1/p' "$project/CMakeLists.txt")" ] ||
        complain "the uninstall entry names another version"
    [ -n "$(value "$uninstall_key" EstimatedSize)" ] || complain "the uninstall entry tells no size"
    [ "$(find "$drive/ProgramData" -path '*Programs/Scourwell/*.lnk' | wc -l)" = 3 ] || complain "there are not three links in the start menu"
    [ "$(setup older.exe)" = 4 ] || complain "an older version replaces a newer one without asking"
    remove
    take_snapshot after
    same_machine before after || complain "the machine is not what it was"
}

keeps_what_is_the_users() {
    local newer='=9=9<9=' older='<9A9<9<' ref=$folder/Ini/update.ref
    new_machine user win98
    setup current.exe > /dev/null
    ref=$folder/Ini/update.ref
    printf '[SETTINGS]\r\nUPDATE-FILE-NUMBER=%s\r\n' "$newer" > "$ref"
    echo kept > "$folder/ignorespylist.txt"
    echo kept > "$folder/My backup.qzp"
    echo kept > "$folder/My backup.q01"
    echo kept > "$folder/note.q01"
    mkdir -p "$drive/backups" "$folder/Disabled Startup/All Users"
    echo kept > "$drive/backups/Other backup.qzp"
    echo kept > "$folder/Disabled Startup/All Users/Tool.lnk"
    wine reg add 'HKCU\Software\Scourwell\Path' /v BackupPath /d 'C:\backups' /f > /dev/null
    wine reg add 'HKCU\Software\Scourwell\Backup' /v MachineKey /d secret /f > /dev/null
    wine reg add 'HKCU\Software\Scourwell\Mark' /v Checked /d n /f > /dev/null
    [ "$(setup current.exe)" = 0 ] || complain "an upgrade fails"
    grep -q "$newer" "$ref" || complain "an upgrade replaces newer definitions"
    printf '[SETTINGS]\r\nUPDATE-FILE-NUMBER=%s\r\n' "$older" > "$ref"
    setup current.exe > /dev/null
    cmp -s "$project/out/Scourwell/Ini/update.ref" "$ref" || complain "an upgrade keeps older definitions"
    [ ! -e "$folder/Ini/update.kept" ] || complain "an upgrade leaves definitions beside"
    grep -q kept "$folder/ignorespylist.txt" || complain "an upgrade loses the ignore list"
    [ "$(value 'HKCU\Software\Scourwell\Mark' Checked)" = n ] || complain "an upgrade loses settings"
    remove
    [ "$(find "$folder" -type f | sed 's|.*/||' | LC_ALL=C sort | paste -sd ,)" = 'My backup.q01,My backup.qzp,Tool.lnk,note.q01' ] ||
        complain "uninstalling leaves $(find "$folder" -type f)"
    [ "$(value 'HKCU\Software\Scourwell\Backup' MachineKey)" = secret ] || complain "the backups lost their proof"
    [ -z "$(value 'HKCU\Software\Scourwell\Mark' Checked)" ] || complain "uninstalling leaves settings"
    [ "$(value 'HKCU\Software\Scourwell\Path' BackupPath)" = 'C:\backups' ] || complain "it is forgotten where the backups lie"
    setup current.exe > /dev/null
    remove /BACKUPS=delete
    [ "$(find "$folder" "$drive/backups" -mindepth 1 | sed 's|.*/||')" = note.q01 ] || complain "deleting backups leaves $(find "$folder" "$drive/backups")"
    [ -z "$(value 'HKCU\Software\Scourwell\Backup' MachineKey)" ] || complain "the proof of backups outlives them"
}

undoes_only_its_own_entries() {
    local run='HKCU\Software\Microsoft\Windows\CurrentVersion\Run' verb='HKCU\Software\Classes\Directory\shell\Scourwell\command'
    new_machine entries 64
    take_snapshot before
    [ "$(setup older.exe)" = 0 ] || complain "the set-up fails on a 64-bit system"
    [ -f "$folder/Scourwell.exe" ] || complain "it installs to another folder on a 64-bit system"
    [ "$(setup current.exe)" = 0 ] || complain "an upgrade fails on a 64-bit system"
    rm "$folder/Uninstall.exe"
    [ "$(setup current.exe)" = 0 ] || complain "it cannot be installed again when its uninstaller is lost"
    wine reg query "${uninstall_key/Software/Software\\Wow6432Node}" > /dev/null || complain "a 64-bit system has no uninstall entry"
    wine reg add "$run" /v ZURANTISPY /d "\"$place\\Scourwell.exe\" /STARTUP" /f > /dev/null
    wine reg add "$verb" /ve /d "\"C:\\other\\Scourwell.exe\" \"%1\"" /f > /dev/null
    remove
    [ -z "$(value "$run" ZURANTISPY)" ] || complain "uninstalling leaves the scan at the start of Windows"
    wine reg query "$verb" /ve | grep -q other || complain "uninstalling takes another copy's entry in Explorer's menu"
    wine reg delete 'HKCU\Software\Classes' /f > /dev/null
    take_snapshot after
    same_machine before after || complain "a 64-bit machine is not what it was"
}

# Early, while the splash screen is there, and later.
closes_what_runs() {
    local running seconds
    new_machine running
    start_display
    for seconds in 1 4; do
        setup current.exe > /dev/null
        wine "$place\\Scourwell.exe" < /dev/null > /dev/null 2>&1 &
        running=$!
        sleep $seconds
        kill -0 $running 2> /dev/null || complain "the program does not start"
        remove
        if kill -0 $running 2> /dev/null; then complain "uninstalling leaves the program running"; fi
        [ ! -e "$folder/Scourwell.exe" ] || complain "uninstalling leaves the program"
    done
    stop_display
    # A program without a window cannot be asked; it is waited for.
    setup current.exe > /dev/null
    cp "$drive/windows/system32/cmd.exe" "$folder/ScourwellCon.exe"
    sleep 3 | wine "$place\\ScourwellCon.exe" > /dev/null &
    sleep 1
    remove
    [ ! -e "$folder" ] || complain "uninstalling leaves a program that was in use"
}

[ -f "$project/out/Scourwell/Scourwell.exe" ] || { echo "installer: out/Scourwell is not built"; exit 1; }
make_setups
installs_and_leaves_nothing
keeps_what_is_the_users
undoes_only_its_own_entries
closes_what_runs
exit $((failures > 0))
