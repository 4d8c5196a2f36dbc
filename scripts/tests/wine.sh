#!/usr/bin/env bash
# scripts/wine: arguments, exit status and paths with blanks arrive; prefixes are made and kept apart;
# the machine is the one that was asked for.
set -euo pipefail

scripts=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
wine=$scripts/wine
. "$scripts/locales.sh"
work=$(mktemp -d)
export WINEPREFIX="$work/a prefix"
unset DISPLAY
trap 'SCOURWELL_WINE= WINEPREFIX="$work/a prefix" "$wine" --kill; rm -rf "$work"' EXIT
failures=0

expect() {
    if [ "$2" != "$3" ]; then
        echo "wine: $1: \"$2\" instead of \"$3\""
        failures=$((failures + 1))
    fi
}

mkdir "$work/some folder"
cat > "$work/echo.cpp" <<'END'
#include <windows.h>
#include <stdio.h>
int main(int count, char **words)
{
    char folder[MAX_PATH];
    GetCurrentDirectoryA(sizeof folder, folder);
    BOOL wow = FALSE;
    IsWow64Process(GetCurrentProcess(), &wow);
    if (count == 2) return printf("%u on %d\n", GetACP(), wow ? 64 : 32), 0;
    printf("%s|%s|%s\n", words[1], words[2], count > 3 ? folder : "");
    return 7;
}
END
i686-w64-mingw32-g++-win32 -s -static "$work/echo.cpp" -o "$work/some folder/echo it.exe"

run() {
    local status=0 output
    output=$("$wine" "$@" | tr -d '\r') || status=$?
    echo "$output $status"
}

cd "$work"
expect "relative path" "$(run 'some folder/echo it.exe' 'a b' '"c"')" 'a b|"c"| 7'
expect "absolute path" "$(cd / && run "$work/some folder/echo it.exe" '' 'C:\x')" '|C:\x| 7'
expect "copied inside" "$(run --inside 'some folder/echo it.exe' 1 2 folder)" '1|2|C:\run 7'
expect "by its Windows name" "$(run 'C:\run\echo it.exe' 1 2)" '1|2| 7'
expect "drives of a prefix" "$(cd "$WINEPREFIX/dosdevices" && echo ?:)" 'c:'
mkdir other && touch other/precious
expect "a folder that is no prefix" "$(WINEPREFIX=other "$wine" 'C:\run\x.exe' 2>/dev/null || ls other)" precious

# expect_machine WINE CODE-PAGE ANSWER
expect_machine() {
    export SCOURWELL_WINE=$1 WINEPREFIX="$work/machine$1"
    expect "machine \"$1\" $2" "$(in_code_page "$2" "$wine" --inside "$work/some folder/echo it.exe" machine | tr -d '\r')" "$3"
    "$wine" --kill
}
expect_machine '' 1252 '1252 on 32'
expect_machine '' 932 '932 on 32'
expect_machine '' 1251 '1251 on 32'
expect_machine 64 1252 '1252 on 64'
expect "no such Wine" "$(SCOURWELL_WINE=16 "$wine" x 2>/dev/null || echo no)" no

exit $((failures > 0))
