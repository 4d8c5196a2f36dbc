#!/usr/bin/env bash
# demo/check-log, which decides whether the demonstration passed: it must notice every difference.
set -euo pipefail

check=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../demo" && pwd)/check-log
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

folder='Adware.X folder:C:\\X\r\n'
count='Components found: 2\r\n'
file='Key Logger.Y file:C:\\a b\\y.exe\r\n\tFileSize :1 kb\r\n'
printf 'Spy File\tKey Logger.Y\tC:\\a b\\y.exe\nSpy Folder\tAdware.X\tC:\\X\n' > "$work/expected"

# expect STATUS LOG PART-OF-OUTPUT
expect() {
    local status=0 output
    # shellcheck disable=SC2059
    printf "Path:C:\\\\windows\\\\x.exe\r\n$2" > "$work/log"
    output=$("$check" "$work/log" "$work/expected") || status=$?
    if [ $status != "$1" ] || [[ $output != *"$3"* ]]; then
        echo "check-log: status $status instead of $1, or not \"$3\" but: $output"
        failures=$((failures + 1))
    fi
}

expect 0 "$folder$file$count" 'found exactly the 2 planted items'
expect 1 "$folder$file" 'components: no count instead of 2'
expect 1 "$folder$file"'Components found: 3\r\n' 'components: 3 instead of 2'
expect 1 "$folder$count" $'missing:\nSpy File\tKey Logger.Y'
expect 1 "$folder$file$file$count" $'unexpected:\nSpy File\tKey Logger.Y'
expect 1 "$folder${file/y.exe/Y.EXE}$count" $'missing:'
expect 1 "${folder/folder:/file:}$file$count" $'unexpected:\nSpy File\tAdware.X'
expect 1 '' 'missing:'

printf 'Memory Process\tZ\tC:\\z.exe\nSpy Cookie\tC\tC:\\c\\u@c.txt\nSpy Registry Key\tK\tHKEY_USERS\\k\nSpy Registry Value\tV\tHKEY_USERS\\k\\n m\n' > "$work/expected"
cookie='C Cookie:C:\\c\\u@c.txt\r\nC file:C:\\c\\u@c.txt\r\n'
key='Registry Key Type = K:\r\n\r\n[HKEY_USERS\\k]\r\n\r\n'
value='Registry Key Value Type = V:\r\n[HKEY_USERS\\k]\r\n"n m"=x\r\n'
count='Components found: 4\r\n'
expect 0 "$cookie$key$value$count" 'found exactly the 4 planted items'
expect 1 "$cookie$value$count" $'missing:\nSpy Registry Key\tK'
expect 1 "$cookie$key${value/n m/n}$count" 'unexpected:'

exit $((failures > 0))
