# Sourced: what every stage of the story shares. A stage is a place where the program can be used as a
# person uses it; its file adds the hands and eyes:
#
#   open_stage WIDTH HEIGHT   the screen, the head unit's files in the language $language, and the
#                             driver's stand-in
#   start_program             again or for the first time, until its window shows
#   program_ended             waits for that, and gives the exit code
#   touch_screen X Y          one tap
#   pixel X Y                 its colour as RRGGBB
#   screenshot FILE           as PNG
#   content NAME              of a file that the program shares with the driver
#
# and for a person with a display:
#
#   open_window WIDTH HEIGHT  the screen, where the mouse is the finger; $start is the command that starts
#                             the program for the wheel, and $unit the folder that both work in
#   window_packages           what that needs
#
# It needs $project, the project's folder.

. "$project/desk/headunit.sh"
at_exit_commands=()
declare -A colours=([gray]=505050 [blue]=0000FF [green]=008000)

# at_exit COMMAND: run it when the shell ends, the last one first, whatever became of the others.
at_exit() {
    at_exit_commands=("$1" "${at_exit_commands[@]}")
    trap 'for command in "${at_exit_commands[@]}"; do eval "$command" 2>/dev/null || true; done' EXIT
}

fail() {
    echo "$*" >&2
    exit 1
}

# await SECONDS WHAT COMMAND...: until the command succeeds; ends the shell where it doesn't.
await() {
    local deadline=$((SECONDS + $1 + 1))
    until "${@:3}"; do
        [ $SECONDS -lt $deadline ] || fail "Waited $1 s for $2"
        sleep 0.05
    done
}

# expect WHAT COMMAND...: succeeds at once.
expect() {
    "${@:2}" || fail "Not as expected: $1"
}

not() {
    ! "$@"
}

milliseconds() {
    date +%s%3N
}

# lay_out WIDTH HEIGHT: where the buttons are on such a screen.
lay_out() {
    width=$1 height=$2
    case $2 in
    480) rows=(244 307 370) controls=440 rim=25 ;;
    600) rows=(299 381 462) controls=551 rim=32 ;;
    esac
}

# The names of the keys in the order of the grid.
key_names() {
    tr -d '\r' <"$project/img/btListInfo.txt" | awk '!/^#/ { print $1 }'
}

# place NAME: sets x and y to the centre of a key, of save and clear, or of the question's yes and no. Eight
# keys are in a row; the question is 240 x 160 in the middle.
place() {
    local index
    case $1 in
    save) x=$((width / 4)) y=$controls ;;
    clear) x=$((width * 3 / 4)) y=$controls ;;
    yes) x=$((width / 2 - 60)) y=$((height / 2 + 55)) ;;
    no) x=$((width / 2 + 60)) y=$((height / 2 + 55)) ;;
    *)
        index=$(($(key_names | grep -nxF -e "$1" | cut -d: -f1) - 1))
        x=$(((2 * (index % 8) + 1) * width / 16)) y=${rows[index / 8]}
        ;;
    esac
}

tap() {
    local x y
    place "$1"
    touch_screen $x $y
}

# is_colour NAME COLOUR: the button's background, taken below its symbol, as a person sees it.
is_colour() {
    local x y
    place "$1"
    [ "$(pixel $x $((y + rim)))" = ${colours[$2]} ]
}

await_colour() {
    await 10 "$1 to turn $2" is_colour "$1" "$2"
}

# The notice is a white box, 160 x 80, 10 pixels above the bottom.
notice_shows() {
    [ "$(pixel $((width / 2 - 72)) $((height - 50)))" = FFFFFF ]
}

question_shows() {
    [ "$(pixel $((width / 2 - 100)) $((height / 2 - 60)))" = 282828 ]
}

# answer yes|no: to the question that opens.
answer() {
    await 5 "the question" question_shows
    tap "$1"
}

# ask TO FROM REQUEST: over two open files; prints the answer up to "ok", an emulator's word for it, or
# "done" and an exit code, and ends the shell where none comes.
ask() {
    local answer
    echo "$3" >&"$1"
    while read -r -t 30 answer <&"$2"; do
        answer=${answer%$'\r'}
        case $answer in
        ok | '{"return": '??'}') return ;;
        'done '*) return "${answer#done }" ;;
        *) echo "$answer" ;;
        esac
    done
    fail "No ok to: $3"
}

# driver COMMAND...: to the stand-in, which reads $commands and answers on $replies.
driver() {
    ask "$commands" "$replies" "$*"
}

# teach KEY: by the wheel's key of the same name. A machine that stands still for seconds lets the selection
# time out, and a person would try again. Where there was time enough, a reading was lost.
teach() {
    local tapped taken
    for _ in 1 2 3; do
        tapped=$(milliseconds)
        tap "$1"
        await_colour "$1" blue
        driver press "$1" 250ms
        taken=$(($(milliseconds) - tapped))
        if (await_colour "$1" green); then
            return
        fi
        [ $taken -gt 2000 ] || break
    done
    fail "$1 was not learned, pressed and released within $taken ms"
}
