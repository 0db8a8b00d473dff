# Sourced after screen.sh and headunit.sh: one program after the other on a unit that has learned
# home and back, in the folder "unit" of the working directory. It needs $build and $project.

# Root can read everything, so it becomes somebody else.
user=()
[ "$(id -u)" != 0 ] || user=(setpriv --reuid=65534 --regid=65534 --clear-groups)

home_key='{"adc": [2301, 3349, 4094], "direction_event": 314}'
back_key='{"adc": [1202, 3350, 4094], "direction_event": 250}'

make_model() {
    prepare_head_unit model "$build"
    echo "{\"direction0\": [$home_key, $back_key]}" >model/$nvm/direction.json
    echo "{\"direction0\": [$back_key]}" >model/$nvm/direction.bak
}

# What a file may hold instead of what it should.
make_contents() {
    mkdir contents
    : >contents/empty
    head -c 100000000 /dev/zero | tr '\0' 7 >contents/digits
    truncate -s 3G contents/huge
    head -c 1000 /dev/zero >contents/nul
    printf '16:2,\xff,{"direction0": ["\xc0"]}\nSystemLanguageId=\xff\n' >contents/utf8
    echo "{\"direction0\": [$home_key, {\"direction_event\": -2147483648, \"adc\": [2147483647," \
        "-2147483648, 1e300]}, {\"direction_event\": 2147483648, \"adc\": [1, 2]}]}" >contents/integers
    echo "{\"x\": $(printf '[%.0s' {1..1000})$(printf ']%.0s' {1..1000}), \"direction0\": [$home_key]}" \
        >contents/deep
    echo "{\"direction0\": [$home_key$(seq -f ', {"direction_event": %.0f, "adc": [1]}' 1000 100999)]}" \
        >contents/many
}

# codes FILE: the keys of a configuration, or what it is instead.
codes() {
    local found
    [ ! -d "$1" ] || { echo directory; return; }
    [ -s "$1" ] || { [ -e "$1" ] && echo empty || echo missing; return; }
    found=$(grep -o 'direction_event": -\?[0-9]*' "$1" | grep -o -e '-\?[0-9]*$' | sort -n || true)
    [ "$(wc -l <<<"$found")" -lt 10 ] || found="$(wc -l <<<"$found") keys"
    echo $found
}

# same WHAT IS EXPECTED
same() {
    [ "$2" = "$3" ] || { echo "$1 is \"$2\", not \"$3\"" >&2; exit 1; }
}

same_backup() { cmp unit/$nvm/direction.bak model/$nvm/direction.bak || exit 1; }

new_unit() {
    rm -rf unit
    cp -a model unit
    [ ${#user[@]} = 0 ] || chown -R 65534:65534 unit
}

# start [COMMAND...]: the program, run by the command.
start() {
    (cd unit && exec "${user[@]}" "$@" application/bin/velmora >out 2>log) &
    program=$!
    trap 'kill $program 2>/dev/null || true' EXIT
    await 60 "the window" grep -qs x: unit/out
}

has_ended() { ! kill -0 $program 2>/dev/null; }
logged() { grep -aqsF "$1" unit/log; }

# What the program made sure of, where it ran under strace with these options.
flushes="-y -o flushes -e trace=fsync"
flushed() { echo $(sed -n 's|.*/\(.*\)>.*= 0$|\1|p' unit/flushes); }

# ends CODE
ends() {
    local code=0
    await 30 "the program's end" has_ended
    wait $program || code=$?
    same "the exit code" $code "$1"
}

# teach HOME MUTE [CONTENT]: the colours of home at the start and of mute after its readings.
teach() {
    await_colour home "$1"
    tap mute
    await_colour mute blue
    [ -z "${3:-}" ] || cp --sparse=always "contents/$3" unit/$nvm/swc_keys
    if [ "$2" = green ]; then
        printf 14:2,900,800,700 >unit/$nvm/swc_keys
        await 5 "the sample" logged 149,2,900,800,700
        printf 16:2,4095,4095,4095 >unit/$nvm/swc_keys
    fi
    await_colour mute "$2"
    same "the number of zombies" "$(ps -eo ppid=,stat= | grep -c "^ *$program Z" || true)" 0
    tap save
}

press_no() {
    tap no
    sleep 0.1
    has_ended
}

# The next start works, and No brings back what the backup has.
restore() {
    start strace $flushes
    case $1 in empty | missing) await_colour home gray ;; *) await_colour home green ;; esac
    tap clear
    await 5 "the question" logged '[msg_print]'
    await 10 "No to end the program" press_no
    ends 0
    same "what was flushed" "$(flushed)" "direction.json nvm"
    same_backup
    cmp unit/$nvm/direction.json model/$nvm/direction.bak || exit 1
}
