# Sourced: a screen without a monitor, with hands and eyes. It needs $project, the project's folder.

leavings=()

# at_exit COMMAND: run it when the shell ends, the last one first, whatever became of the others.
at_exit() {
    leavings=("$1" "${leavings[@]}")
    trap 'for command in "${leavings[@]}"; do eval "$command" 2>/dev/null || true; done' EXIT
}

# lay_out WIDTH HEIGHT: where the buttons are on such a screen.
lay_out() {
    width=$1 height=$2
    case $2 in
    480) rows=(244 307 370) controls=440 rim=25 ;;
    600) rows=(299 381 462) controls=551 rim=32 ;;
    esac
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
    at_exit "kill $!"
    await 10 "the X server" test -s "$number"
    DISPLAY=:$(cat "$number")
    export DISPLAY
    openbox --config-file "$project/desk/openbox.xml" --startup "touch $ready" >/dev/null 2>&1 &
    at_exit "kill $!"
    await 10 "the window manager" test -e "$ready"
    rm -f "$number" "$ready"
}

# await SECONDS WHAT COMMAND...: until the command succeeds; ends the shell where it doesn't.
await() {
    local seconds=$1 what=$2 deadline=$((SECONDS + $1 + 1))
    shift 2
    until "$@"; do
        if [ $SECONDS -ge $deadline ]; then
            echo "Waited $seconds s for $what" >&2
            exit 1
        fi
        sleep 0.05
    done
}

# The names of the keys in the order of the grid.
key_names() {
    tr -d '\r' <"$project/img/btListInfo.txt" | awk '!/^#/ { print $1 }'
}

# place NAME: the centre of a key, of save and clear, or of the question's yes and no. Eight keys
# are in a row; the question is 240 x 160 in the middle.
place() {
    local index
    case $1 in
    save) echo $((width / 4)) $controls ;;
    clear) echo $((width * 3 / 4)) $controls ;;
    yes) echo $((width / 2 - 60)) $((height / 2 + 55)) ;;
    no) echo $((width / 2 + 60)) $((height / 2 + 55)) ;;
    *)
        index=$(($(key_names | grep -nxF -e "$1" | cut -d: -f1) - 1))
        echo $(((2 * (index % 8) + 1) * width / 16)) "${rows[index / 8]}"
        ;;
    esac
}

tap() {
    local x y
    read -r x y <<<"$(place "$1")"
    xdotool mousemove "$x" "$y" click 1
}

# pixel X Y: its colour as #RRGGBB.
pixel() {
    import -window root -crop "1x1+$1+$2" -depth 8 txt:- | sed -n '2s/.*\(#[0-9A-F]*\).*/\1/p'
}

# is_colour NAME COLOUR: the button's background, taken below its symbol, as a person sees it.
is_colour() {
    local x y hex
    read -r x y <<<"$(place "$1")"
    case $2 in
    gray) hex='#505050' ;;
    blue) hex='#0000FF' ;;
    green) hex='#008000' ;;
    esac
    [ "$(pixel "$x" $((y + rim)))" = "$hex" ]
}

question_is_open() {
    [ "$(pixel $((width / 2 - 100)) $((height / 2 - 60)))" = '#282828' ]
}

# answer yes|no: to the question that opens.
answer() {
    await 5 "the question" question_is_open
    tap "$1"
}

await_colour() {
    await 10 "$1 to turn $2" is_colour "$1" "$2"
}

screenshot() {
    import -window root "$1"
}
