# Sourced after screen.sh and headunit.sh: the program and the driver's stand-in at work on a head
# unit's folder, told what to do by a script. It needs $build, the folder of the desk build.

# start_program FOLDER [COMMAND...]: run by the command. Its output goes into the folder, its number
# into $program.
start_program() {
    local folder=$1
    shift
    (cd "$folder" && exec "$@" application/bin/velmora) >"$folder/output.txt" 2>"$folder/log.txt" &
    program=$!
    at_exit "kill $program"
    await 30 "the program's window" is_colour save gray
}

# Waits until the program has ended, and gives its exit code.
program_ended() {
    await 10 "the program to end" not_running "$program"
    wait "$program"
}

not_running() {
    ! kill -0 "$1" 2>/dev/null
}

# start_driver FOLDER OPTION...: the stand-in as a partner that takes commands.
start_driver() {
    local root=$1
    shift
    coproc driver_process { exec "$build/bin/swc-simulator" --root "$root" "$@" --script -; }
}

# driver COMMAND...: ends the shell where the stand-in does not say ok.
driver() {
    local reply
    echo "$*" >&"${driver_process[1]}"
    while read -r -t 30 reply <&"${driver_process[0]}"; do
        [ "$reply" != ok ] || return 0
        echo "$reply"
    done
    echo "The driver's stand-in failed at: $*" >&2
    exit 1
}

# teach KEY [WHEEL_KEY]: the key of the screen, by the wheel's key of that or the same name.
# A machine that stands still for seconds lets the selection time out, and a person would try again.
# Where there was time enough, a reading was lost.
teach() {
    local attempt tapped taken
    for attempt in 1 2 3; do
        tapped=$(milliseconds)
        tap "$1"
        await_colour "$1" blue
        driver press "${2:-$1}" 400ms
        taken=$(($(milliseconds) - tapped))
        if (await_colour "$1" green); then
            return
        fi
        echo "$1 was not learned at attempt $attempt, pressed and released within $taken ms" >&2
        [ "$taken" -gt 2000 ] || exit 1
    done
    exit 1
}

milliseconds() {
    date +%s%3N
}
