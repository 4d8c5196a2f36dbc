#!/usr/bin/env bash
# scripts/make-builtin: what it writes, and the rows it must not let through.
set -euo pipefail

project=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failures=0

complain() {
    echo "make-builtin: $*"
    failures=$((failures + 1))
}

# made LIST ROW: the generator's messages for the shipped rows with one more at the end, in printf
# notation; the result is in $scratch/out.cpp.
made() {
    rm -rf "$scratch/in" "$scratch/out.cpp"
    cp -r "$project/definitions/builtin" "$scratch/in"
    # shellcheck disable=SC2059
    printf "$2" >> "$scratch/in/$1.tsv"
    "$project/scripts/make-builtin" "$scratch/in" "$scratch/out.cpp" 2>&1
}

# refuses LIST ROW PART-OF-MESSAGE
refuses() {
    local message line
    if message=$(made "$1" "$2"); then
        complain "accepted in $1: $2"
    else
        line=$(wc -l < "$scratch/in/$1.tsv")
        [[ $message == *"/$1.tsv:$line: "*"$3"* ]] || complain "wrong message for $2: $message"
    fi
    [ ! -e "$scratch/out.cpp" ] || complain "wrote a file in spite of: $2"
}

message=$(made spyware_files 'X.Y\txyzzy"1.dll\tknown\n') && complain "accepted a quotation mark"
message=$(made spyware_files '\r\n# note\r\nAdware.X\tsub folder\\xyzzy??.dll\tknown\r\n') ||
    complain "refused a good row: $message"
grep -qF '{DefinitionKind::File, "Adware.X", "sub folder\\xyzzy\?\?.dll"},' \
    "$scratch/out.cpp" || complain "the row came out wrong"
made hijacker_direct_entries 'file\tHijacker.X\tapp_data\t\\xyzzy.dll\tknown\n' > "$scratch/log" ||
    complain "refused a direct row: $(cat "$scratch/log")"
grep -qF '{DefinitionKind::DirectFile, "Hijacker.X", "%AD%\\xyzzy.dll"},' \
    "$scratch/out.cpp" || complain "the direct row came out wrong"

hklm='HKEY_LOCAL_MACHINE\\Software\\Xyzzy'
refuses trojan_files 'Other\tmsrexe.EXE\tknown\n' 'the same row'
refuses dialer_files 'X\tabcd*.exe\tknown\n' 'too broad'
refuses dialer_files 'X\t*.*\tknown\n' 'too broad'
refuses dialer_files 'X\tsetup*.exe\tknown\n' 'too broad'
refuses spyware_folders 'X\tplugin-*-*US\tknown\n' 'too broad'
refuses dialer_files 'X\tkernel3?.dll\tknown\n' 'ships with Windows'
refuses dialer_files 'X\tXyzzy*\\a.exe\tknown\n' 'wildcards before'
refuses dialer_files 'X\tKernel32.DLL\tknown\n' 'ships with Windows'
refuses dialer_files 'X\tXyzzy\\Explorer.exe\tknown\n' 'ships with Windows'
refuses spyware_folders 'X\tCommon Files\tknown\n' 'ships with Windows'
refuses keylogger_direct_files 'X\twindows\t\\Regedit.exe\tknown\n' 'ships with Windows'
refuses keylogger_direct_folders 'X\twindows\t\\System32\tknown\n' 'ships with Windows'
refuses keylogger_direct_files 'X\twindows\t\\xyzzy*.exe\tknown\n' 'wildcards in a direct row'
refuses keylogger_direct_files 'X\twin\t\\xyzzy.exe\tknown\n' 'unknown known folder'
refuses keylogger_direct_files 'X\twindows\txyzzy.exe\tknown\n' 'does not begin'
refuses keylogger_direct_files 'X\twindows\t\\\tknown\n' 'the part ""'
refuses keylogger_direct_folders 'X\twindows\t\\..\\xyzzy\tknown\n' 'the part ".."'
refuses keylogger_direct_folders 'X\twindows\t\\xyzzy\\.\tknown\n' 'the part "."'
refuses keylogger_direct_folders 'X\twindows\t\\\\xyzzy\tknown\n' 'the part ""'
refuses keylogger_direct_files 'X\twindows\t\\C:\\xyzzy.exe\tknown\n' 'drive letter'
refuses spyware_files 'X\tC:\\xyzzy.exe\tknown\n' 'drive letter'
refuses spyware_files 'X\t\\xyzzy.exe\tknown\n' 'begins with'
refuses spyware_files 'X\txyzzy.exe.\tknown\n' 'blank or dot'
refuses spyware_files 'X\tnul.exe\tknown\n' 'device name'
refuses spyware_files 'X\txyz\001zy.exe\tknown\n' 'control character'
refuses spyware_files 'X\txyzz\351.exe\tknown\n' 'beyond ASCII'
refuses spyware_files '\txyzzy.exe\tknown\n' 'empty field "spy"'
refuses spyware_files 'X\t\tknown\n' 'empty field "text"'
refuses spyware_files 'X\txyzzy.exe\t\n' 'empty field "source"'
refuses spyware_files 'X\txyzzy.exe\n' '3 columns expected, 2 found'
refuses spyware_files 'X\t xyzzy.exe\tknown\n' 'blanks around'
refuses hijacker_direct_entries 'thing\tX\twindows\t\\xyzzy.exe\tknown\n' 'unknown kind'
refuses processes 'X\tSVCHOST.EXE\tknown\n' 'Windows process'
refuses processes 'X\tSystem\tknown\n' 'Windows process'
refuses processes 'X\txyz*.exe\tknown\n' 'without path'
refuses cookies 'X\t@ad\tknown\n' 'too broad'
refuses cookies 'X\t@[\tknown\n' 'too broad'
refuses registry_startup_values "$hklm"'\tX\txyzzy\tknown\n' 'does not end'
refuses registry_startup_values 'HKLM\\Software\\\tX\txyzzy\tknown\n' 'unknown root'
refuses registry_startup_values "$hklm"'\\\tX\tctfmon.exe\tknown\n' 'ships with Windows'
refuses registry 'key\tHKEY_CLASSES_ROOT\\CLSID\tX\tknown\n' 'neither a class'
refuses registry 'key\t{00000000-0000-0000-0000-000000000000}\tX\tknown\n' 'neither a class'
refuses registry 'key\t{00000000}\tX\tknown\n' 'neither a class'

made spyware_file 'X\txyzzy.exe\tknown\n' > "$scratch/log" && complain "accepted a list it does not know"
rm -rf "$scratch/in"
cp -r "$project/definitions/builtin" "$scratch/in"
printf '# spy\tfile\tsource\n' > "$scratch/in/trojan_files.tsv"
"$project/scripts/make-builtin" "$scratch/in" "$scratch/out.cpp" 2> "$scratch/log" &&
    complain "accepted an empty list"
rm "$scratch/in/trojan_files.tsv"
"$project/scripts/make-builtin" "$scratch/in" "$scratch/out.cpp" 2> "$scratch/log" &&
    complain "accepted a missing list"

exit $((failures > 0))
