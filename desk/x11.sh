# Sourced: the stage on an X server. The program of the build folder $build runs in the folder
# $unit. The array runner can hold a command that runs it. $wheel_program is velmora-wheel.

. "$project/desk/stage.sh"
runner=()

open_stage() {
    install_program
    start_screen "$1" "$2" Xvfb -screen 0 "$1x$2x24"
    coproc wheel_process { exec "$wheel_program" --root "$unit" --exact --script -; }
    from_wheel=${wheel_process[0]} to_wheel=${wheel_process[1]}
}

install_program() {
    make_platform_files "$unit"
    DESTDIR=$(realpath "$unit") cmake --install "$build" >/dev/null
}

# start_screen WIDTH HEIGHT SERVER...: sets DISPLAY, and $screen to the process of the server.
# Without -noreset the server resets when the program ends, and may refuse the next one.
start_screen() {
    lay_out "$1" "$2"
    rm -f "$unit/display"
    "${@:3}" -noreset -displayfd 3 3>"$unit/display" 2>/dev/null &
    screen=$!
    at_exit "kill $screen"
    await 10 "the X server" test -s "$unit/display"
    export DISPLAY=:$(cat "$unit/display")
}

start_program() {
    (cd "$unit" && exec "${runner[@]}" application/bin/velmora >output.txt 2>log.txt) &
    program=$!
    at_exit "kill $program"
    await 30 "the program's window" is_colour save gray
}

program_ended() {
    await 20 "the program to end" not test -e "/proc/$program"
    wait "$program"
}

touch_screen() { xdotool mousemove "$1" "$2" click 1; }
pixel() { import -window root -crop "1x1+$1+$2" -depth 8 -format '%[hex:p{0,0}]' info:; }
screenshot() { import -window root -strip "$1"; }
content() { cat "$unit/$nvm/$1"; }
