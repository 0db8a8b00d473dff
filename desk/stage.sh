# Sourced, with the project's folder in $project: what the stages of the story share. A stage is
# what the program runs on: an X server, or the emulated head unit. Each has a file that defines
#
#   open_stage WIDTH HEIGHT   starts the screen and the wheel and creates the platform's files, for
#                             the language $language; sets the descriptors $to_wheel and $from_wheel
#   start_program             starts the program and waits for its window
#   program_ended             waits for the end of the program, and returns its exit code
#   touch_screen X Y          taps on the screen
#   pixel X Y                 prints the colour of a pixel as RRGGBB
#   screenshot FILE           writes a PNG
#   content NAME              prints a file that the program shares with the driver

nvm=media/flash/nvm # the folder of these files, below the root
language=${language-0} # 1 is Chinese
at_exit_commands=()
declare -A colours=([gray]=505050 [blue]=0000FF [green]=008000)

# at_exit COMMAND: runs the command when the shell ends, even if other such commands fail. The last
# command runs first.
at_exit() {
    at_exit_commands=("($1) 2>/dev/null || true" "${at_exit_commands[@]}")
    trap 'for command in "${at_exit_commands[@]}"; do eval "$command"; done' EXIT
}

fail() { echo "$*" >&2; exit 1; }
not() { ! "$@"; }

# await SECONDS WHAT COMMAND...: repeats the command until it succeeds.
await() {
    local deadline=$((SECONDS + $1 + 1))
    until "${@:3}"; do
        [ $SECONDS -lt $deadline ] || fail "Waited $1 s for $2"
        sleep 0.05
    done
}

# make_platform_files ROOT: creates the files that the platform provides. Keeps the learned keys.
make_platform_files() {
    mkdir -p "$1/$nvm/Corvane"
    : >"$1/$nvm/swc_keys"
    printf 0 >"$1/$nvm/swc_flags"
    printf 'SystemLanguageId=%s\n' "$language" >"$1/$nvm/Corvane/UserData.ini"
}

# lay_out WIDTH HEIGHT: sets the positions of the buttons on a screen of this size.
lay_out() {
    width=$1 height=$2
    case $2 in
    480) key_rows=(244 307 370) control_row=440 below_symbol=25 ;;
    600) key_rows=(299 381 462) control_row=551 below_symbol=32 ;;
    esac
}

# The names of the keys, in their order on the screen.
key_names() {
    tr -d '\r' <"$project/img/btListInfo.txt" | awk '!/^#/ { print $1 }'
}

# locate BUTTON: sets x and y to its centre.
locate() {
    local index
    case $1 in
    save) x=$((width / 4)) y=$control_row ;;
    clear) x=$((width * 3 / 4)) y=$control_row ;;
    yes) x=$((width / 2 - 60)) y=$((height / 2 + 55)) ;;
    no) x=$((width / 2 + 60)) y=$((height / 2 + 55)) ;;
    *)
        index=$(($(key_names | grep -nxF -e "$1" | cut -d: -f1) - 1))
        x=$(((2 * (index % 8) + 1) * width / 16)) y=${key_rows[index / 8]}
        ;;
    esac
}

tap() {
    local x y
    locate "$1"
    touch_screen $x $y
}

is_colour() {
    local x y
    locate "$1"
    [ "$(pixel $x $((y + below_symbol)))" = ${colours[$2]} ]
}

await_colour() { await 10 "$1 to turn $2" is_colour "$1" "$2"; }

# The notice is white, 160 x 80, 10 pixels above the bottom.
notice_shows() { [ "$(pixel $((width / 2 - 72)) $((height - 50)))" = FFFFFF ]; }
question_shows() { [ "$(pixel $((width / 2 - 100)) $((height / 2 - 60)))" = 282828 ]; }

answer() {
    await 5 "the question" question_shows
    tap "$1"
}

# ask TO FROM LAST REQUEST: writes the request to the descriptor TO, and prints the lines that come
# from the descriptor FROM until one matches the pattern LAST. Sets $last to this line.
ask() {
    echo "$4" >&"$1"
    while read -r -t 30 last <&"$2"; do
        last=${last%$'\r'}
        [[ $last != $3 ]] || return 0
        echo "$last"
    done
    fail "No answer to: $4"
}

# wheel LINE: executes a line of a script of velmora-wheel.
wheel() { ask "$to_wheel" "$from_wheel" ok "$*"; }

# Tries again only if the machine was so busy that the selection may have timed out.
teach() {
    local start released
    for _ in 1 2 3; do
        start=$SECONDS
        tap "$1"
        await_colour "$1" blue
        wheel press "$1" 250ms
        released=$SECONDS
        ! (await_colour "$1" green) || return 0
        [ $((released - start)) -gt 2 ] || break
    done
    fail "$1 was not learned"
}
