#!/usr/bin/env bash
# scripts/check-imports.sh: passes a program that starts everywhere, names what others would miss.
set -euo pipefail

check=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/check-imports.sh
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

complain() {
    echo "check-imports: $*"
    failures=$((failures + 1))
}

# build STATEMENTS [OPTION...]
build() {
    local statements=$1
    shift
    {
        printf '#define _WIN32_WINNT 0x0501\n#include <windows.h>\n#include <psapi.h>\n#include <shellapi.h>\n'
        printf 'extern "C" __declspec(dllimport) void __stdcall ByNumber(void);\nint main() { %s }\n' "$statements"
    } > "$work/program.cpp"
    i686-w64-mingw32-g++-win32 -Os -s -static "$work/program.cpp" -o "$work/program.exe" "$@"
}

# refuses COMPLAINT STATEMENTS [OPTION...]
refuses() {
    local complaint=$1 output
    shift
    build "$@"
    if output=$("$check" "$work/program.exe" 2>&1); then
        complain "accepted a program with: $complaint"
    elif [[ $output != *"$complaint"* ]]; then
        complain "did not say \"$complaint\" but: $output"
    fi
}

build 'MessageBoxA(0, "", "", 0); RegCloseKey(0); MessageBoxW(0, L"", L"", 0); GetFileAttributesW(L"");'
"$check" "$work/program.exe" || complain "refused a program that starts everywhere"

printf 'LIBRARY comctl32.dll\nEXPORTS\nByNumber@0 @17 NONAME\n' > "$work/numbers.def"
i686-w64-mingw32-dlltool -k -d "$work/numbers.def" -l "$work/libnumbers.a"

refuses 'kernel32 GetConsoleWindow: since 2000' 'GetConsoleWindow();'
refuses 'kernel32 CancelIo: not in Windows 95' 'CancelIo(0);'
refuses 'user32 GetAncestor: since 98' 'GetAncestor(0, 1);'
refuses 'shell32 ShellExecuteW: wide-character' 'ShellExecuteW(0, L"", L"", L"", L"", 0);' -lshell32
refuses 'user32 GetMonitorInfoW: since 98' 'GetMonitorInfoW(0, 0);'
refuses 'psapi: not a library' 'DWORD n; EnumProcesses(&n, 4, &n);' -lpsapi
refuses 'comctl32 17: imported by number' 'ByNumber();' -L"$work" -lnumbers
refuses 'subsystem version 5.1' '' -Wl,--subsystem,console:5.1

for other in "$work/program.cpp" "$work/missing.exe"; do
    ! "$check" "$other" 2>/dev/null || complain "accepted $other"
done

exit $((failures > 0))
