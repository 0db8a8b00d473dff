#!/usr/bin/env bash
# startup.sh BUILD: the first frame takes at most four times the instructions of an empty window,
# and nothing wakes up after it.
set -euo pipefail

build=$1 program=
unit=$(mktemp -d)
trap 'kill $program 2>/dev/null || true; rm -rf "$unit"' EXIT
DESTDIR=$unit cmake --install "$build" >/dev/null
mkdir -p "$unit/media/flash/nvm"
touch "$unit"/media/flash/nvm/swc_{keys,flags}
cd "$unit"
export QT_QPA_PLATFORM=offscreen QT_HASH_SEED=0

# Fails if one of the program's threads runs within 5 seconds.
is_idle() {
    local before
    before=$(cat /proc/$program/task/*/schedstat)
    sleep 5
    [ "$(cat /proc/$program/task/*/schedstat)" = "$before" ]
}

# count PROGRAM: sets $instructions to how many it executes until it is idle.
count() {
    valgrind --tool=callgrind --callgrind-out-file=/dev/null "$1" >/dev/null 2>log &
    program=$!
    for ((tries = 1; ; tries++)); do
        sleep 1
        ! is_idle || break
        [ $tries -lt 10 ] || { echo "$1 does not become idle" >&2 && exit 1; }
    done
    kill $program
    wait $program || true
    instructions=$(sed -n 's/.*Collected : //p' log)
}

count "$build/bin/emptywindow"
empty=$instructions
count application/bin/velmora
echo "Instructions: $instructions, of an empty window: $empty"
[ "$instructions" -le $((4 * empty)) ]
