# Sourced after stage.sh and headunit.sh: the stage on an X server of this machine. The program and its catalogues are
# those of the build folder $build, run by the command "${runner[@]}" if there is one, in the folder
# $unit; $simulator is the driver's stand-in, with the options "${driver_options[@]}".

runner=()
driver_options=()

open_stage() {
    start_screen "$1" "$2"
    prepare_head_unit "$unit" "$build"
    start_driver
}

# start_screen WIDTH HEIGHT [SERVER]: sets DISPLAY; the screen goes when the shell ends.
start_screen() {
    local number ready
    lay_out "$1" "$2"
    number=$(mktemp) ready=$(mktemp -u)
    case ${3:-Xvfb} in
    Xvfb) Xvfb -displayfd 3 -screen 0 "${1}x${2}x24" -nolisten tcp 3>"$number" 2>/dev/null & ;;
    Xephyr) Xephyr -displayfd 3 -screen "${1}x${2}" -title "Head unit" 3>"$number" 2>/dev/null & ;;
    esac
    screen=$!
    at_exit "kill $screen"
    await 10 "the X server" test -s "$number"
    DISPLAY=:$(cat "$number")
    export DISPLAY
    openbox --config-file "$project/desk/openbox.xml" --startup "touch $ready" >/dev/null 2>&1 &
    at_exit "kill $!"
    await 10 "the window manager" test -e "$ready"
    rm -f "$number" "$ready"
}

start_driver() {
    coproc stand_in { exec "$simulator" --root "$unit" "${driver_options[@]}" --script -; }
    replies=${stand_in[0]} commands=${stand_in[1]}
}

# Its number goes into $program.
start_program() {
    (cd "$unit" && exec "${runner[@]}" application/bin/velmora) >"$unit/output.txt" 2>"$unit/log.txt" &
    program=$!
    at_exit "kill $program"
    await 30 "the program's window" is_colour save gray
}

program_ended() {
    await 20 "the program to end" program_is_gone
    wait "$program"
}

program_is_gone() {
    ! kill -0 "$program" 2>/dev/null
}

touch_screen() {
    xdotool mousemove "$1" "$2" click 1
}

pixel() {
    import -window root -crop "1x1+$1+$2" -depth 8 txt:- | sed -n '2s/.*\(#[0-9A-F]*\).*/\1/p'
}

screenshot() {
    import -window root -strip "$1"
}

content() {
    cat "$unit/$nvm/$1"
}
