#!/usr/bin/env bash
# The default definitions under Wine: a machine on which something stands for every row is found out
# row by row, and a clean machine is found clean.
set -euo pipefail

project=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
work=$project/build/test-default
refc=$project/build/win32/host/refc/refc
stand_ins=$project/build/win32/demo
user=$(id -un)
failures=0
spy=                                                            # a stand-in that runs

complain() {
    echo "default-definitions: $*"
    failures=$((failures + 1))
}

wine() { WINEPREFIX=$prefix "$project/scripts/wine" "$@"; }

# machine NAME: a fresh prefix with the program folder as it ships.
machine() {
    prefix=$work/$1
    WINEPREFIX=$prefix "$project/scripts/wine" --kill
    "$project/build/wine/new-prefix" "$prefix"
    drive=$prefix/drive_c
    cp -r "$project/out/Scourwell" "$drive/Scourwell"
}

# Scans unattended and leaves the log in $prefix/log.
scan() {
    local tries log scanner
    "$project/scripts/wine" 'C:\Scourwell\Scourwell.exe' /STARTUP \
        > "$prefix/output" 2>&1 &
    scanner=$!
    for ((tries = 0; tries < 600; tries++)); do
        sleep 0.2
        log=$(find "$drive/Scourwell" -maxdepth 1 -name 'ScanLog*.txt')
        [ -z "$log" ] || ! tr -d '\r' < "$log" | grep -q '^OS Product Name: ' || break
    done
    sleep 1
    [ -z "$spy" ] || ! kill -0 "$spy" 2>/dev/null || complain "the running spy was not ended"
    wine --kill
    wait "$scanner" $spy || true
    [ -n "$log" ] || { complain "no scan log"; return 1; }
    tr -d '\r' < "$log" > "$prefix/log"
    # The planted shortcuts are texts.
    if grep -v 'The shortcut cannot be read' "$drive/Scourwell/errorlog.txt" 2>/dev/null | grep -q 'Error Number'; then
        complain "errors: $(grep -v 'The shortcut cannot be read' "$drive/Scourwell/errorlog.txt" | head -n 5)"
    fi
}

found() { sed -n 's/^Components found: //p' "$prefix/log" | tail -n 1; }

export WINEPREFIX
mkdir -p "$work"
. "$project/scripts/display.sh"
trap stop_display EXIT
start_display
"$refc" dump "$project/out/Scourwell/Ini/update.ref" > "$work/dump.txt"

# --- something for every row -----------------------------------------------------------------

machine planted
WINEPREFIX=$prefix
"$project/demo/plant-definitions" "$work/dump.txt" "$drive" "$user" > "$work/planted.txt"
wine regedit /S 'C:\planted.reg' > /dev/null 2>&1
# By what a program says of itself, one of each kind; all these texts stand in the default file.
mkdir -p "$drive/versions"
for name in SCW:company_part SCE:company_whole SBOFN:original_name SBIFN:internal_name SBPN:product_name \
    SBFD:description; do
    cp "$stand_ins/${name#*:}.exe" "$drive/versions/x_${name#*:}.exe"
    printf '%s\tC:\\versions\\x_%s.exe\n' "${name%:*}" "${name#*:}" >> "$work/planted.txt"
done
# A process that runs, and must be ended.
mkdir -p "$drive/running"
process=$(sed -n 's/^0MEMAF=//p' "$work/dump.txt")
cp "$stand_ins/stand_in.exe" "$drive/running/$process"
# Its file is known as well, and found although the process is.
printf 'file of a process\tC:\\running\\%s\n' "$process" >> "$work/planted.txt"
wine "C:\\running\\$process" > /dev/null 2>&1 &
spy=$!
sleep 1
kill -0 $spy 2>/dev/null || complain "the stand-in of $process does not start"
scan
spy=
"$project/demo/check-log" --rows "$prefix/log" > "$work/found.txt"
# All planted is found; all that is found was planted, or is a folder above it.
perl -e '
    my (%planted, %found, %above, %rows, %missed);
    open my $p, "<", $ARGV[0] or die; open my $f, "<", $ARGV[1] or die;
    while (<$p>) { chomp; my ($section, $path) = split /\t/; $planted{lc $path} = $section }
    for my $path (keys %planted) { my $up = $path; $above{$up} = 1 while $up =~ s/\\[^\\]*$// }
    while (<$f>) { chomp; $found{lc((split /\t/)[2])} = $_ }
    for (sort keys %planted) { $rows{$planted{$_}}++; print "missing: $planted{$_} $_\n" unless $found{$_} }
    for (sort keys %found) { print "unexpected: $found{$_}\n" unless $planted{$_} || $above{$_} }
    print STDERR join(", ", map { "$_ $rows{$_}" } sort keys %rows), "\n";
' "$work/planted.txt" "$work/found.txt" > "$work/difference.txt" || complain "cannot compare"
[ ! -s "$work/difference.txt" ] || complain "$(wc -l < "$work/difference.txt") differences: $(head -n 20 "$work/difference.txt")"
rows=$(wc -l < "$work/found.txt")
[ "$(found)" -gt "$rows" ] || complain "the log counts $(found) components, without the process"

# --- nothing for any -------------------------------------------------------------------------

machine clean
WINEPREFIX=$prefix
printf 'REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\Software\\Scourwell\\ScanSections]\r\n"AdvancedScanning"="True"\r\n' \
    > "$drive/advanced.reg"
wine regedit /S 'C:\advanced.reg' > /dev/null 2>&1
scan
[ "$(found)" = 0 ] || complain "a clean machine: $("$project/demo/check-log" --rows "$prefix/log" | head)"

exit $((failures > 0))
