#!/usr/bin/env bash
# The native program as a process: exit codes, valid lines for any name, Ctrl+C at any moment, a reader that
# leaves, an output that is full, disks with an ignore list, and the package, its manual page and its completion.
set -euo pipefail

project=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd -P)
program=$project/out/linux/scourwell
work=$project/build/console
export LC_ALL=C.UTF-8 XDG_DATA_HOME=$work/data

fail() { echo "console: $*"; exit 1; }

# ends WITH COMMAND...
ends() {
    local wanted=$1 status=0
    shift
    "$@" > "$work/out" 2> "$work/err" < /dev/null || status=$?
    [ "$status" = "$wanted" ] || { cat "$work/err"; fail "${*//$work\//} ended with $status, not $wanted"; }
}

make_tree() {
    rm -rf "$work"
    mkdir -p "$work/clean" "$work/names" "$work/many"
    python3 - "$work/names" "$work/many" << 'END'
import os, sys
names, many = map(os.fsencode, sys.argv[1:])
hostile = [b'q"b\\', b"line\nbreak", b"\x01\x1b[31m", b"\xff\xfe", "Ąé\u202Egpj".encode(), b"<script>", b"=1+1", b"\xed\xa0\x80"]
for number, name in enumerate(hostile):
    folder = os.path.join(names, name)
    os.makedirs(folder)
    open(os.path.join(folder, b"anadsc.ocx"), "w").close()
os.symlink(names, os.path.join(names, b"loop"))
for folder in range(200):
    path = os.path.join(many, b"%d" % folder)
    os.mkdir(path)
    for file in range(50):
        open(os.path.join(path, b"%d.txt" % file), "w").close()
    open(os.path.join(path, b"anadsc.ocx"), "w").close()
END
}

exit_codes() {
    ends 0 "$program" scan "$work/clean"
    ends 1 "$program" scan "$work/names"
    ends 3 "$program" scan "$work/clean" "$work/missing"
    ends 3 "$program" scan --windows "$work/clean"
    ends 3 "$program" scan --definitions "$work/missing" "$work/clean"
    ends 3 "$program" remove --yes "$work/names"
    ends 64 "$program" scan
    ends 64 "$program" startup
    ends 64 "$program"
    ends 64 "$program" scan --nonsense
    ends 64 "$program" remove --windows "$work/clean" --format=xml
    ends 0 "$program" --version
}

# Every name comes back from the lines, be it no UTF-8 at all.
valid_lines() {
    ends 1 "$program" scan --format json "$work/names"
    python3 - "$work" << 'END'
import json, os, sys
work = sys.argv[1]
with open(work + "/out", "rb") as out:
    lines = [json.loads(line.decode("utf-8", "strict")) for line in out.read().split(b"\n")[:-1]]
def on_disk(path):  # a character of a disk's own bytes is one escape each
    return path.encode("utf-8", "surrogateescape")
found = {on_disk(line["path"]) for line in lines[:-1]}
there = {os.path.join(os.fsencode(work), b"names", name, b"anadsc.ocx")
         for name in os.listdir(os.fsencode(work) + b"/names") if name != b"loop"}
assert found == there, found ^ there
assert lines[-1]["summary"] is True and lines[-1]["counts"]["file"] == len(there)
END
    ends 1 "$program" scan --format csv "$work/names"
    python3 -c '
import csv, sys
rows = list(csv.reader(open(sys.argv[1], encoding="utf-8", newline="")))
assert len(rows) == 9 and {len(row) for row in rows} == {10}, rows' "$work/out"
    ends 1 "$program" scan "$work/names"
    ! grep -q $'\x1b' "$work/out" || fail "a name reaches the terminal as it is"
}

stops() {
    local delay status codes=
    for delay in 0 0.002 0.005 0.01 0.02 0.04 0.08; do
        status=0
        # An interactive shell hands programs in the background their signals; this one has to be asked.
        python3 -c '
import signal, subprocess, sys, time
run = subprocess.Popen(sys.argv[2:], stdout=open(sys.argv[1], "wb"), stderr=subprocess.DEVNULL,
                       preexec_fn=lambda: signal.signal(signal.SIGINT, signal.SIG_DFL))
time.sleep(float("'"$delay"'"))
run.send_signal(signal.SIGINT)
sys.exit(run.wait() % 256)' "$work/out" "$program" scan --format json "$work/many" || status=$?
        case $status in
            1 | 4) tail -n 1 "$work/out" | grep -q '"summary": true' || fail "a stopped scan has no last line" ;;
            254) ;;                                             # before the program had begun
            *) fail "Ctrl+C after $delay s ended it with $status" ;;
        esac
        codes+=" $status"
    done
    [[ $codes == *" 4"* ]] || fail "no scan was stopped:$codes"
}

lost_readers() {
    local status=0
    # A reader that takes a line first may get all of a quick scan.
    { sleep 0.5; "$program" scan --format json "$work/many" || echo $? > "$work/status"; } | :
    [ "$(cat "$work/status")" = 3 ] || fail "a closed pipe ends it with $(cat "$work/status")"
    "$program" scan --format json "$work/many" > /dev/full || status=$?
    [ "$status" = 3 ] || fail "a full disk ends it with $status"
}

package() {
    local deb=$project/build/native/scourwell_1.0.0_amd64.deb root=$work/root
    (cd "$project/build/native" && cpack > "$work/cpack.txt")
    dpkg -x "$deb" "$root"
    ends 1 "$root/usr/bin/scourwell" scan "$work/names"
    ends 0 "$root/usr/bin/scourwell" definitions
    grep -q "$root/usr/share/scourwell/update.ref" "$work/out" || fail "the package does not find its definitions"
    [[ $(dpkg -I "$deb") == *Depends:*libhivex* ]] || fail "the package does not say what it needs"
}

# Two drives of a disk with two Windows, and an ignore list of names beyond ASCII, which outlives the run.
disks() {
    local spy=Dialer.InstantAccess place='D:\Ünï 漢字\EGDACCESS_7.dll' disk=$work/disk
    local drives=(--drive "C=$disk/c" --drive "D=$disk/d")
    "$project/demo/make-disk" "$disk/c"
    cp -r "$disk/c/WINDOWS" "$disk/c/WINNT"
    mkdir -p "$disk/d/Ünï 漢字"
    echo harmless > "$disk/d/Ünï 漢字/EGDACCESS_7.dll"
    ends 3 "$program" scan "${drives[@]}"
    grep -q 'WINNT.*Windows XP' "$work/err" || fail "the disk has two Windows, and they are not listed"
    drives+=(--windows-folder 'c:\winnt')
    ends 1 "$program" scan "${drives[@]}"
    grep -qF "$place" "$work/out" || fail "the second drive is not scanned"
    ends 0 "$program" ignore "${drives[@]}" --add file "$spy" "$place"
    ends 1 "$program" scan "${drives[@]}"
    ! grep -qF "$place" "$work/out" || fail "what is on the ignore list is shown"
    ends 0 "$program" ignore "${drives[@]}"
    grep -qF "$place" "$work/out" || fail "the ignore list shows another place: $(cat "$work/out")"
    ends 0 "$program" ignore "${drives[@]}" --remove file "$spy" "$place"
    ends 1 "$program" scan "${drives[@]}"
    grep -qF "$place" "$work/out" || fail "what was taken off the ignore list is not shown"
    ends 2 "$program" remove --yes "${drives[@]}"
    grep -q "keeps no access rights" "$work/err" || fail "nobody says what the backup of a disk lacks"
}

# The page names every option, and the completion offers them.
documents() {
    local command option
    sed 's/\\-/-/g' "$project/docs/scourwell.1" > "$work/page"
    for command in scan remove restore backups ignore startup report definitions; do
        "$program" "$command" --help > "$work/help"
        for option in $(sed -nE 's/^  --(\[no-\])?([a-z-]+).*/\2/p' "$work/help"); do
            [ "$option" = help ] || grep -q -- "--$option" "$work/page" ||
                fail "the manual page does not know --$option"
        done
    done
    bash -c '
        . "$1/docs/scourwell.bash-completion"
        COMP_WORDS=("$2" scan --no-m) COMP_CWORD=2
        _scourwell
        [ "${COMPREPLY[*]}" = --no-memory ]' - "$project" "$program" || fail "the completion does not complete"
}

make_tree
exit_codes
valid_lines
stops
lost_readers
disks
package
documents
echo "the program as a process: fine"
