#!/usr/bin/env bash
# end_to_end.sh SOURCE BUILD WIDTH HEIGHT WAY [COMMAND...]: the real program, run by the command, on a
# screen of that size, real clicks, and the driver's stand-in as another process that writes its
# file in that way.
set -euo pipefail

project=$1
build=$2
screen=("$3" "$4")
way=$5
shift 5
command=("$@")
keys=(home back mute)
. "$project/desk/screen.sh"
. "$project/desk/headunit.sh"
. "$project/desk/teaching.sh"

check() {
    local what=$1
    shift
    "$@" || {
        echo "Failed: $what" >&2
        tail -n 20 "$unit/log.txt" >&2
        exit 1
    }
}

# gray_pixels WIDTH HEIGHT X Y: how many of that part of the screen show a button without a symbol.
gray_pixels() {
    import -window root -crop "$1x$2+$3+$4" -depth 8 txt:- | grep -c '#505050'
}

# The first key's button, measured on a row and a column that its symbol leaves free.
check_button_size() {
    local x y
    read -r x y <<<"$(place home)"
    check "button width" [ "$(gray_pixels $((width / 8)) 1 0 $((y + rim - 3)))" = "$1" ]
    check "button height" [ "$(gray_pixels 1 $((2 * rim + 12)) $((x - 30)) $((y - rim - 6)))" = "$2" ]
}

# The driver's files are in memory: a busy disk can hold up a reading for seconds.
unit=$(mktemp -d)
memory=$(mktemp -d -p /dev/shm 2>/dev/null || mktemp -d)
at_exit "rm -rf $unit $memory"
ln -s "$memory" "$unit/media"
start_screen "${screen[@]}"
prepare_head_unit "$unit" "$build"
start_program "$unit" "${command[@]}"
start_driver "$unit" --wheel "$project/tests/wheel.json" --write "$way"

driver flag 1
check "the line with the screen's size" grep -qx "x:$width, y:$height" "$unit/output.txt"
case $height in
480) check_button_size 86 57 ;;
600) check_button_size 110 72 ;;
esac

# A key that is learned already is refused for another, and the window takes no harm. Neither key of
# the screen is taught below, where the time-out of its first selection would end the next one.
teach left back
tap up
await_colour up blue
driver press back
await_colour up gray

tap clear
answer yes
driver flag 11
await_colour left gray

for key in "${keys[@]}"; do
    teach "$key"
done
tap save
check "exit code 0 after saving" program_ended
driver flag 0
check "the saved bytes" cmp "$project/tests/direction.json" "$unit/$nvm/direction.json"
check "the backup" cmp "$unit/$nvm/direction.json" "$unit/$nvm/direction.bak"
driver decode all

# The next start shows what was learned, and No brings the backup back.
: >"$unit/$nvm/direction.json"
start_program "$unit" "${command[@]}"
await_colour home gray
tap clear
answer no
check "exit code 0 after No" program_ended
check "the restored bytes" cmp "$unit/$nvm/direction.bak" "$unit/$nvm/direction.json"
start_program "$unit" "${command[@]}"
for key in "${keys[@]}"; do
    await_colour "$key" green
done
await_colour up gray
