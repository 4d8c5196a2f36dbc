# Read by scripts that need a screen nobody sees.
#   start_display [WIDTHxHEIGHT]   starts an X server on a free number and sets DISPLAY
#   stop_display                   ends it; harmless without one
# shellcheck shell=bash

display_server=

start_display() {
    local state tries number=
    state=$(mktemp -d)
    : > "$state/number"
    # The server finds a free number by itself. Without -noreset it would begin anew, and turn programs
    # away meanwhile, whenever the last one has gone.
    Xvfb -displayfd 3 -screen 0 "${1:-1024x768}x24" -noreset -nolisten tcp \
        3> "$state/number" > "$state/log" 2>&1 &
    display_server=$!
    for ((tries = 0; tries < 300; tries++)); do
        number=$(< "$state/number")
        [ -z "$number" ] || break
        kill -0 "$display_server" 2> /dev/null || break
        sleep 0.1
    done
    [ -n "$number" ] || { echo "Xvfb does not start:"; tail -n 5 "$state/log"; } >&2
    rm -rf "$state"
    export DISPLAY=:$number
    [ -n "$number" ]
}

stop_display() {
    [ -n "$display_server" ] || return 0
    kill "$display_server" 2> /dev/null || true
    wait "$display_server" 2> /dev/null || true
    display_server=
}
