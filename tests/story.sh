#!/usr/bin/env bash
# story.sh BUILD SIMULATOR WIDTH HEIGHT LANGUAGE WAY [COMMAND...]: the story on an X screen of that size,
# by the build's program, run by the command, with a stand-in that writes its file in that way. What is
# saved is the same everywhere.
set -euo pipefail

project=$(cd "$(dirname "$0")/.." && pwd)
build=$1
simulator=$2
language=$5
. "$project/desk/x11.sh"
. "$project/desk/story.sh"
driver_options=(--exact)
runner=("${@:7}")

# The driver's files are in memory: a busy disk can hold up a reading for seconds.
unit=$(mktemp -d)
memory=$(mktemp -d -p /dev/shm 2>/dev/null || mktemp -d)
at_exit "rm -rf '$unit' '$memory'"
at_exit "tail -n 5 '$unit/log.txt'"
ln -s "$memory" "$unit/media"
open_stage "$3" "$4"
tell_story "$unit/pictures"
expect "the screen's size" grep -qx "x:$width, y:$height" "$unit/output.txt"
diff -u "$project/tests/story.json" "$unit/pictures/direction.json"
