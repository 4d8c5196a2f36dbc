#!/usr/bin/env bash
# demo/check-log, which decides whether the demonstration passed: it must notice every difference.
set -euo pipefail

check=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../demo" && pwd)/check-log
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

folder='Adware.X folder:C:\\X\r\n'
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

expect 0 "$folder$file" 'found exactly the 2 planted items'
expect 1 "$folder" $'missing:\nSpy File\tKey Logger.Y'
expect 1 "$folder$file$file" $'unexpected:\nSpy File\tKey Logger.Y'
expect 1 "$folder${file/y.exe/Y.EXE}" $'missing:'
expect 1 "${folder/folder:/file:}$file" $'unexpected:\nSpy File\tAdware.X'
expect 1 '' 'missing:'

exit $((failures > 0))
