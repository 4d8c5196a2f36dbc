#!/usr/bin/env bash
# check-imports.sh PROGRAM...: fails when a program would not start on Windows 95, 98, Me, NT 4,
# 2000 or XP. Windows refuses a program with a single missing import, whether it is called or not.
# Complaints, one per line:
#   - an import from a library outside win32-exports/dlls.txt
#   - a kernel32 function that the first Windows 95 or NT 4 lacks
#   - a function of another library that win32-exports/too-new.txt names
#   - a wide-character function (name ending in W) of a library other than advapi32, kernel32,
#     user32 and gdi32:
#     only these surely have a stub for it on 9x, where the program must not call it
#   - a wide-character function whose ANSI form is too new
#   - an import by number: numbers differ between versions of Windows
#   - a subsystem version above 4.0
set -euo pipefail

lists=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/win32-exports

# Reads "objdump -p" output, prints the complaints.
complaints() {
    awk -v lists="$lists" '
        function read_names(file, names,    line) {
            while ((getline line < (lists "/" file)) > 0)
                if (line !~ /^#/ && line != "") names[line] = 1
            close(lists "/" file)
        }
        function read_too_new(    line, field) {
            while ((getline line < (lists "/too-new.txt")) > 0)
                if (line !~ /^#/ && split(line, field, " ") > 1) {
                    sub(/^[^ ]+ +[^ ]+ */, "", line)
                    since[field[1] " " field[2]] = line
                }
        }
        BEGIN {
            read_names("dlls.txt", known)
            read_names("kernel32-win95.txt", win95)
            read_names("kernel32-nt40.txt", nt40)
            read_too_new()
            stubs["advapi32"] = stubs["kernel32"] = stubs["user32"] = stubs["gdi32"] = 1
        }
        /^MajorSubsystemVersion/ { major = $2 }
        /^MinorSubsystemVersion/ { minor = $2 }
        /DLL Name:/ {
            libraries++
            dll = tolower($3)
            sub(/\.dll$/, "", dll)
            if (!(dll in known)) print dll ": not a library that every Windows has"
        }
        # Address, number or hint, name
        NF == 3 && $1 ~ /^[0-9a-f]+$/ && $2 ~ /^[0-9]+$/ {
            name = $3
            if (!(dll in known)) next
            ansi = name
            sub(/W$/, "A", ansi)
            if (name ~ /^<none>/) print dll " " $2 ": imported by number"
            else if ((dll " " name) in since) print dll " " name ": since " since[dll " " name]
            else if ((dll " " ansi) in since) print dll " " name ": since " since[dll " " ansi]
            else if (dll == "kernel32" && !(name in win95)) print dll " " name ": not in Windows 95"
            else if (dll == "kernel32" && !(name in nt40)) print dll " " name ": not in Windows NT 4"
            else if (name ~ /W$/ && !(dll in stubs)) print dll " " name ": wide-character function"
        }
        END {
            if (major * 100 + minor > 400) print "subsystem version " major "." minor " is above 4.0"
            if (!libraries) print "no imports found: not a Windows program?"
        }'
}

check() {
    local dump bad
    dump=$(LC_ALL=C i686-w64-mingw32-objdump -p "$1") || return 1
    bad=$(complaints <<< "$dump")
    [ -n "$bad" ] || return 0
    echo "$1 would not run on every Windows from 95 to XP:"
    # shellcheck disable=SC2001
    sed 's/^/  /' <<< "$bad"
    return 1
}

status=0
[ $# -gt 0 ] || { echo "usage: check-imports.sh PROGRAM..." >&2; exit 2; }
for program in "$@"; do
    check "$program" >&2 || status=1
done
exit $status
