# Sourced: the stage on an X server of this machine. The program and its catalogues are those of the build
# folder $build, run by the command "${runner[@]}" if there is one, in the folder $unit; $simulator is
# the driver's stand-in, with the options "${driver_options[@]}".

. "$project/desk/stage.sh"
window_packages=(xserver-xephyr)
runner=()
driver_options=()

open_stage() {
    start_screen "$1" "$2"
    prepare_head_unit "$unit" "$build"
    start_driver
}

# What was learned there stays for the next time.
open_window() {
    local display=$DISPLAY
    unit=$project/build/headunit
    start_screen "$1" "$2" Xephyr
    start=(env DISPLAY="$DISPLAY" application/bin/velmora)
    DISPLAY=$display
    prepare_head_unit "$unit" "$build"
}

# start_screen WIDTH HEIGHT [Xephyr]: sets DISPLAY; the screen goes when the shell ends.
start_screen() {
    local server=(Xvfb -screen 0 "${1}x${2}x24") number ready
    [ "${3-}" != Xephyr ] || server=(Xephyr -screen "${1}x${2}" -title "Head unit")
    lay_out "$1" "$2"
    number=$(mktemp) ready=$(mktemp -u)
    "${server[@]}" -displayfd 3 3>"$number" 2>/dev/null &
    at_exit "kill $!"
    await 10 "the X server" test -s "$number"
    export DISPLAY=:$(cat "$number")
    openbox --config-file "$project/desk/openbox.xml" --startup "touch '$ready'" >/dev/null 2>&1 &
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
    await 20 "the program to end" not test -e "/proc/$program"
    wait "$program"
}

touch_screen() {
    xdotool mousemove "$1" "$2" click 1
}

pixel() {
    import -window root -crop "1x1+$1+$2" -depth 8 -format '%[hex:p{0,0}]' info:
}

screenshot() {
    import -window root -strip "$1"
}

content() {
    cat "$unit/$nvm/$1"
}
