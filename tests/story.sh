#!/usr/bin/env bash
# story.sh BUILD WHEEL WIDTH HEIGHT LANGUAGE [COMMAND...]: the story on an X screen of that size, by the
# build's program, run by the command.
set -euo pipefail

project=$(cd "$(dirname "$0")/.." && pwd)
. "$project/desk/x11.sh"
. "$project/desk/story.sh"
build=$1
wheel_program=$2
language=$5
runner=("${@:6}")

# The driver's files are in memory: a busy disk can hold up a measurement for seconds.
unit=$(mktemp -d)
memory=$(mktemp -d -p /dev/shm 2>/dev/null || mktemp -d)
at_exit "rm -rf '$unit' '$memory'"
at_exit "tail -n 5 '$unit/log.txt'"
ln -s "$memory" "$unit/media"
open_stage "$3" "$4"
tell_story "$unit/pictures"
grep -qx "x:$width, y:$height" "$unit/output.txt" || fail "The window is not as large as the screen"
