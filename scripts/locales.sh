# Read by scripts that need a Windows of another language: Wine takes the ANSI code page from the locale.
#   in_code_page NUMBER COMMAND...   runs the command, and what it starts, in a locale that has the code
#                                    page; the locale is made in build/locales first if need be
#   exec_in_code_page NUMBER COMMAND...   the same in place of this shell
# shellcheck shell=bash

locales_folder=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)/build/locales
declare -A code_page_locales=([1252]=C [932]=ja_JP [1251]=ru_RU [1250]=pl_PL)

# Not exported: this shell itself would not find a locale of LOCPATH, and say so.
in_code_page() {
    find_locale "$1" || return 1
    env LOCPATH="$locales_folder" LC_ALL="$locale_found" "${@:2}"
}

exec_in_code_page() {
    find_locale "$1" || return 1
    exec env LOCPATH="$locales_folder" LC_ALL="$locale_found" "${@:2}"
}

find_locale() {
    local locale=${code_page_locales[$1]:-}
    [ -n "$locale" ] || { echo "locales: no locale is known for the code page" >&2; return 1; }
    [ "$locale" = C ] || make_locale "$locale" || return 1
    locale_found=$locale.UTF-8
}

# Made aside, so that an interrupted run leaves no half of one.
make_locale() {
    local folder=$locales_folder/$1.UTF-8 made
    [ ! -d "$folder" ] || return 0
    "$(dirname "${BASH_SOURCE[0]}")/install-packages.sh" locales
    mkdir -p "$locales_folder"
    made=$(mktemp -d "$locales_folder/new.XXXXXX")
    if localedef -i "$1" -f UTF-8 "$made/$1.UTF-8"; then mv -T "$made/$1.UTF-8" "$folder" 2> /dev/null || true; fi
    rm -rf "$made"
    [ -d "$folder" ]
}
