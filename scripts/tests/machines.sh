#!/usr/bin/env bash
# The machines on which every name must be handled: each is walked once, some at a time, and must show
# no fault. tests/machines/walk says what that means, and walks one alone.
set -euo pipefail

project=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd -P)
here=$project/tests/machines
logs=$project/build/machines
at_a_time=3
most_lines=40
status=0

trap 'jobs=$(jobs -p); [ -z "$jobs" ] || kill $jobs 2> /dev/null || true' EXIT

walk() { exec "$here/walk" "$1" > "$logs/$1.txt" 2>&1; }

# tell MACHINE: what was wrong there.
tell() {
    local lines
    lines=$(wc -l < "$logs/$1.txt")
    head -n "$most_lines" "$logs/$1.txt" | cut -c 1-300
    [ "$lines" -le "$most_lines" ] || echo "$1: $lines faults in all, in $logs/$1.txt"
}

mkdir -p "$logs"
"$here/self-test" || status=1
"$project/scripts/setup-wine64.sh"
machines=(64 western japanese cyrillic unsaved win98)
for machine in "${machines[@]}"; do
    [ "$(jobs -rp | wc -l)" -lt "$at_a_time" ] || wait -n || status=1
    walk "$machine" &
done
while [ -n "$(jobs -p)" ]; do wait -n || status=1; done
for machine in "${machines[@]}"; do tell "$machine"; done
exit $status
