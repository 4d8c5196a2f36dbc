#!/usr/bin/env bash
# Ten spies, as descriptions have them (tests/spies/artefacts.tsv), stand on one machine: the program as
# it ships finds, removes and restores them whole, and touches nothing else.
# What each step left behind stays in build/spies.
set -euo pipefail

project=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd -P)
machine=$project/tests/spies/machine
work=$project/build/spies
drive=$work/prefix/drive_c
limit=60                                                        # seconds for scan and removal
export WINEPREFIX=$work/prefix LC_ALL=C.UTF-8 PYTHONDONTWRITEBYTECODE=1
user=$(id -un)
. "$project/scripts/display.sh"

die() { echo "spies: $*"; exit 1; }

wine() { "$project/scripts/wine" "$@"; }

snapshot() {
    wine --kill
    "$project/tests/machines/snapshot" "$work/prefix" "$work/$1.json"
}

make_machine() {
    wine --kill
    rm -rf "$work"
    mkdir -p "$work"
    "$project/build/wine/new-prefix" "$work/prefix"
    cp -r "$project/out/Scourwell" "$drive/Scourwell"
    cp --remove-destination "$project/build/win32/demo/regedit.exe" "$drive/windows"   # Wine's own refuses what a restoration asks for
    mkdir "$drive/run"
    cp "$project/build/win32/tests/win/attendant.exe" "$drive/run"
    "$machine" plant "$work/prefix" "$user"
    cd "$drive"                                                 # Wine knows no folder outside
    wine regedit /S 'C:\run\planted.reg' > /dev/null 2>&1
}

find_log() { find "$drive/Scourwell" -maxdepth 1 -name 'ScanLog*.txt' | head -n 1; }

# The log ends with what came of each object, between two rules.
removal_is_logged() {
    local log
    log=$(find_log)
    [ -n "$log" ] && tr -d '\r' < "$log" | awk '
        /^Removal / { removal = NR }
        /^=+$/ { rule = NR }
        END { exit !(removal && rule > removal + 1) }'
}

start_program() {
    "$project/scripts/wine" 'C:\Scourwell\Scourwell.exe' "$@" > "$work/output" 2>&1 &
    scourwell=$!
}

attend() {
    wine 'C:\run\attendant.exe' "$1" > "$work/$1" 2>&1 || die "$1: $(tr -d '\r' < "$work/$1" | tr '\n' ' ')"
}

scan_and_remove() {
    local end=$((SECONDS + limit))
    start_program /STARTUP
    until removal_is_logged; do
        kill -0 "$scourwell" 2> /dev/null || die "the program ended before the removal was done"
        [ "$SECONDS" -lt "$end" ] || die "scan and removal were not done after $limit s"
        sleep 0.2
    done
    attend close
    cp "$(find_log)" "$work/log"
    ! grep -s 'Error Number' "$drive/Scourwell/errorlog.txt" || die "the program noted errors"
    snapshot after
}

clean_up() {
    # shellcheck disable=SC2046
    kill $(jobs -p) 2> /dev/null || true
    wine --kill 2> /dev/null || true
    stop_display
}

trap clean_up EXIT
start_display || die "there is no screen"
make_machine
snapshot before
scan_and_remove
start_program
attend restore
snapshot restored
"$machine" judge "$work" "$user"
