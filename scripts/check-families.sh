#!/usr/bin/env bash
# check-families.sh NM OBJECT...: fails when an object outside of platform/win/nt calls a wide function
# of the system, or one outside of platform/win/w9x an ANSI one.
set -euo pipefail

nm=$1
shift
# What tells the families apart, and the one wide function that both have for the program's needs.
permitted='family\.cpp\.obj GetFileAttributesW|program_win\.cpp\.obj GetCommandLineW'

calls=$("$nm" -A "$@" |
    sed -nE 's/^([^:]+): .* U __imp__([A-Za-z0-9_]+[AW])@[0-9]+$/\1 \2/p')
[ "$(grep -cE '/(nt|w9x)/' <<< "$calls")" -gt 100 ] || { echo "These objects call too little."; exit 1; }
strays=$(grep -vE "/nt/.* [A-Za-z0-9_]+W$|/w9x/.* [A-Za-z0-9_]+A$|($permitted)$" <<< "$calls" || true)
[ -n "$strays" ] || exit 0
echo "Calls of a family outside of its place:"
sed 's/^.*CMakeFiles\//  /' <<< "$strays"
exit 1
