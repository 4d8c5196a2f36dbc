#!/usr/bin/env bash
# refc as a program: on a real disk, against hostile files with little memory, and on Windows.
set -euo pipefail

project=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
refc=$project/build/win32/host/refc/refc
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

complain() {
    echo "refc: $*"
    failures=$((failures + 1))
}

# expect CODE COMMAND...: runs it with its output in out and err.
expect() {
    local wanted=$1 code=0
    shift
    "$@" > "$work/out" 2> "$work/err" || code=$?
    [ $code = "$wanted" ] || complain "exit code $code instead of $wanted: $* $(head -n 3 "$work/err")"
}

# --- a real disk -----------------------------------------------------------------------------

expect 0 "$refc" build "$project/definitions/reference" -o "$work/a.ref"
expect 0 "$refc" dump "$work/a.ref"
cp "$work/out" "$work/dump.txt"
expect 0 "$refc" build "$work/dump.txt" -o "$work/b.ref"
cmp -s "$work/a.ref" "$work/b.ref" || complain "build, dump, build gave another file"
cmp -s "$work/a.ref" "$project/out/Scourwell/Ini/update.ref" || complain "the program folder holds another file"
expect 0 "$refc" lint "$work/a.ref"
expect 2 "$refc" dump "$work"
expect 2 "$refc" build "$work/dump.txt" -o "$work/absent/b.ref"
printf 'old' > "$work/kept.ref"
printf '[spyware]\nx\n' > "$work/bad.tsv"
expect 1 "$refc" build "$work/bad.tsv" -o "$work/kept.ref"
[ "$(cat "$work/kept.ref")" = old ] || complain "a failed build changed the old file"
[ "$(ls "$work" | grep -c '\.new$')" = 0 ] || complain "a failed build left a file behind"

# --- hostile files: no more than ten times their size in memory, beside the program's own 24 MB --

hostile() {
    local name=$1 code=0 size command
    perl -e "$2" > "$work/$name"
    size=$(stat -c %s "$work/$name")
    for command in lint dump; do
        code=0
        (ulimit -v $((size / 1024 * 10 + 24576)) && exec timeout 60 "$refc" $command "$work/$name") \
            > /dev/null 2> "$work/err" || code=$?
        [ $code -lt 2 ] || complain "$command $name ($size bytes): exit code $code: $(head -n 1 "$work/err")"
    done
}

hostile lines.ref 'print "\n" x 8e6'
hostile keys.ref 'print "[SAFI]\n"; print "0=\n" x 3e6'
hostile one_line.ref 'print "[SAFI]\n0SAFIT=", "\x01" x 8e6'
hostile one_name.ref 'print "[", "\x01" x 8e6, "]"'
hostile nul.ref 'print "\0" x 8e6'
hostile sections.ref 'print "[$_]\n" for 0 .. 999_999'
hostile braces.ref 'print "[SAFI]\n0SAFIS=", "\x87\x84=>\x89" x 2e6, "\n"'
hostile numbers.ref 'for $s (qw(SAFI TAFI DAFI HAFI KAFI SAFO TAFO DAFO HAFO KAFO)) {
    print "[$s]\n"; print "$_${s}T=m\n$_${s}S=m\n$_${s}TD=m\n$_${s}SD=m\n" for 0 .. 10_000 }'
hostile patterns.ref 'for $s (qw(SAFI TAFI DAFI HAFI KAFI SAFO TAFO DAFO HAFO KAFO)) {
    print "[$s]\n"; print "$_${s}T=m\n$_${s}S=", "m" x 6, chr(109 + $_ % 20), "66\n" for 0 .. 10_000 }'
hostile gaps.ref 'for $s (qw(COOK REGV)) { print "[$s]\n"; print 10_000 - $_, "${s}T=m\n" for 0 .. 10_000 }'
hostile rows.tsv 'print "[spyware]\n"; print "a\tcookie\tb\ts\n" x 9_000, "a\tfile\tb\ts\n" x 9_000'
hostile tabs.tsv 'print "[spyware]\n", "\t" x 8e6'
hostile patterns.tsv 'print "[spyware]\n"; print "a\tfile\tabcde*$_*\ts\na\tfolder\t*abcde$_\ts\n" for 0 .. 9_999'
hostile wide.tsv 'print "[spyware]\n"; print "a\tprogram part\t", "\xC3\xA0" x 900, "\ts\n" for 0 .. 999'

# --- Windows ---------------------------------------------------------------------------------

exe=$project/build/win32/refc/refc.exe
prefix=$work/prefix
"$project/build/wine/new-prefix" "$prefix" > /dev/null
cp "$exe" "$prefix/drive_c/refc.exe"
cp -r "$project/definitions/reference" "$prefix/drive_c/sources"
wine() { (cd "$prefix/drive_c" && WINEPREFIX=$prefix "$project/scripts/wine" 'C:\refc.exe' "$@"); }
printf 'old' > "$prefix/drive_c/a.ref"
expect 0 wine lint 'C:\sources'
expect 0 wine build 'C:\sources' -o 'C:\a.ref'
cmp -s "$work/a.ref" "$prefix/drive_c/a.ref" || complain "the Windows build made another file"
expect 0 wine dump 'C:\a.ref'
cmp -s "$work/out" "$work/dump.txt" || complain "the Windows build dumped something else"
expect 1 wine match 'C:\a.ref' 'SpyAxe\spyaxe.exe'
WINEPREFIX=$prefix "$project/scripts/wine" --kill

exit $((failures > 0))
