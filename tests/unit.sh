#!/usr/bin/env bash
# unit.sh: the story on an emulated head unit, once for each size, language and kind of touch panel; a
# program that is killed; and the plug pulled after the end and at many moments of a save.
set -euo pipefail

project=$(cd "$(dirname "$0")/.." && pwd)
. "$project/desk/unit.sh"
. "$project/desk/story.sh"
expected=$project/tests/story.json
saved_keys=(home back mute)
cuts=40

# tell PANEL LANGUAGE WIDTH HEIGHT
tell() {
    echo "$3 x $4, panel $1, language $2"
    panel=$1 language=$2
    open_stage "$3" "$4"
    tell_story "$run/$3"
    cmp "$expected" "$run/$3/direction.json"
}

kill_program() {
    echo "The program is killed"
    local code=0
    start_program
    driver flag 1
    inside 'kill -KILL $(pidof velmora)'
    program_ended || code=$?
    expect "exit code 137" [ $code = 137 ]
    driver flag 0
}

pull_after_end() {
    echo "The plug is pulled a second after the end"
    start_program
    tap save
    program_ended
    sleep 1
    pull_the_plug
    look_at_medium
    expect "learning is off on the medium" [ "$(on_medium swc_flags)" = 0 ]
}

# Three keys are about to replace all: from this state, which is kept beside the flash's, the unit goes on as
# often as wanted. One save is not cut, and shows the new file.
freeze_before_save() {
    local key
    start_program
    tap clear
    answer yes
    await_colour home gray
    for key in "${saved_keys[@]}"; do
        teach "$key"
    done
    monitor human-monitor-command '"command-line": "savevm frozen"'
    pull_the_plug
    plug_in -loadvm frozen
    tap save
    program_ended
    content direction.json >"$run/new.json"
    pull_the_plug
}

# cut_power MILLISECONDS: after the tap. Says which file is left.
cut_power() {
    plug_in -loadvm frozen
    tap save
    sleep "$(printf '0.%03d' "$1")"
    pull_the_plug
    look_at_medium
    expect "the backup is whole after $1 ms" cmp "$expected" <(on_medium direction.bak)
    on_medium direction.json >"$run/left.json"
    left=new
    cmp -s "$run/left.json" "$run/new.json" || left=old
    [ $left = new ] || expect "the old file or the new one after $1 ms" cmp "$run/left.json" "$expected"
}

boot_again() {
    local key colour
    plug_in
    start_program
    for key in $(key_names); do
        [[ $left = old || " ${saved_keys[*]} " = *" $key "* ]] && colour=green || colour=gray
        expect "$key is $colour with the $left file" is_colour "$key" $colour
    done
    pull_the_plug
}

# The unit is plugged in again with every third of the old files and of the new ones.
pull_during_save() {
    local number left
    declare -A seen=([old]=0 [new]=0)
    freeze_before_save
    for ((number = 1; number <= cuts; number++)); do
        cut_power $((number * 6))
        [ $((seen[$left]++ % 3)) != 0 ] || boot_again
    done
    echo "The plug was pulled $cuts times during a save: ${seen[old]} left the old file, ${seen[new]} the new one"
    expect "some cuts come before the save, some after" [ $((seen[old] * seen[new])) -gt 0 ]
}

tell touchit213 1 1024 600
kill_program
pull_after_end
tell penmount3000 0 800 480
pull_during_save
