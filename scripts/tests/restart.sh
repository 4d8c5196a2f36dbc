#!/usr/bin/env bash
# What is deleted while it is in use stays away after a restart, and what was restored stays: for each row
# of the table spies run and hold a file, on one machine, under the program as it ships.
# What each step said stays in build/restart.
set -euo pipefail

project=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd -P)
work=$project/build/restart
drive=$work/prefix/drive_c
table='
    gone    away    delete
    back    there   delete restore
    freed   there   delete free restore
    again   away    delete restore delete
    twice   away    delete delete
    late    away    delete free delete
    round   there   delete restore free delete restore'
export WINEPREFIX=$work/prefix LC_ALL=C.UTF-8

fail() { echo "restart: $*"; exit 1; }

wine() { "$project/build/wine/wine" "$@"; }

# Its exit code says what was found; what came of it is seen on the disk.
console() { wine 'C:\Scourwell\ScourwellCon.exe' "$@" >> "$work/said" 2>&1 < /dev/null || true; }

wait_for() {
    local end=$((SECONDS + 30))
    until "$@"; do
        [ "$SECONDS" -lt "$end" ] || fail "$* did not come about"
        sleep 0.05
    done
}

make_machine() {
    "$project/build/wine/wineserver" -k 2> /dev/null || true
    rm -rf "$work"
    mkdir -p "$work"
    "$project/build/wine/new-prefix" "$work/prefix"
    cp -r "$project/out/Scourwell" "$drive/Scourwell"
    mkdir "$drive/run"
    cd "$drive"                                                 # Wine knows no folder outside
}

# start ROW PROGRAM FILE: a program that runs can be moved, the file that it holds cannot.
start() {
    mkdir -p "$1/Spytech SpyAgent"
    cp "$project/build/win32/tests/win/attendant.exe" "$1/$2"
    echo "held" > "$1/$3"
    wine "C:\\$1\\${2//\//\\}" hold "C:\\$1\\${3//\//\\}" "C:\\run\\free-$1" > "$work/$1-${3##*/}" 2>&1 < /dev/null &
    echo $! >> "$work/$1.pids"
    wait_for grep -qs '^held' "$work/$1-${3##*/}"
}

ended() { ! kill -0 $(< "$work/$1.pids") 2> /dev/null; }

delete() {
    deletions=$((deletions + 1))
    console remove --yes --files --delete-at-restart --quiet --backup "$1-$deletions" "C:\\$1"
}

restore() { console restore --yes "$1-1"; }

free() {
    touch "run/free-$1"
    wait_for ended "$1"
}

there() { find "$1" -type f 2> /dev/null | sort | tr '\n' ' '; }

play() {
    local row=$1 step deletions=0
    shift 2
    start "$row" hxdef100.exe hxdef100.ini
    start "$row" "Spytech SpyAgent/run.exe" "Spytech SpyAgent/held.dat"
    for step in "$@"; do
        echo "== $row: $step" >> "$work/said"
        "$step" "$row"
    done
}

judge() {
    local row=$1 wanted=
    [ "$2" = away ] || wanted="$row/Spytech SpyAgent/held.dat $row/Spytech SpyAgent/run.exe $row/hxdef100.exe $row/hxdef100.ini "
    [ "$(there "$row")" = "$wanted" ] || fail "$row: after the restart there is: $(there "$row")"
    [ "$2" = there ] || [ ! -e "$row/Spytech SpyAgent" ] || fail "$row: the emptied folder is still there"
}

trap '"$project/build/wine/wineserver" -k 2> /dev/null || true' EXIT
make_machine
while read -r line; do
    [ -z "$line" ] || play $line
done <<< "$table"
"$project/build/wine/wineserver" -k
wait
wine wineboot > /dev/null 2>&1
while read -r line; do
    [ -z "$line" ] || judge $line
done <<< "$table"
[ -z "$(ls -d windows/~scw* 2> /dev/null)" ] || fail "what was moved aside is still there"
