# Sourced after a stage: the story, which uses the program as a person would.

# tell_story FOLDER: saves pictures and the saved configuration there. The README shows 3-learning.
tell_story() {
    pictures=$1
    mkdir -p "$pictures"
    learn_one_key
    clear_and_learn_all
    save_nothing_and_restore
}

picture() {
    screenshot "$pictures/$1.png"
    echo "$1"
}

save() {
    tap save
    program_ended || fail "Exit code $? after save, not 0"
    wheel flag 0
}

# The same key of the wheel is refused for another key on the screen.
learn_one_key() {
    start_program
    wheel flag 1
    picture 1-start
    teach home
    await 5 "the notice" notice_shows
    picture 2-success
    await 5 "the notice to go" not notice_shows
    tap playpause
    await_colour playpause blue
    picture 3-learning
    wheel press home 250ms
    await 5 "the notice" notice_shows
    is_colour playpause gray || fail "A key of the wheel was learned twice"
    picture 4-repeat
}

# Home and playpause come last, when the timers of their earlier taps have expired.
clear_and_learn_all() {
    local key
    tap clear
    await 5 "the question" question_shows
    picture 5-question
    answer yes
    await_colour home gray
    wheel flag 11
    for key in $(key_names | grep -vx -e home -e playpause) home playpause; do
        teach "$key"
    done
    picture 6-all-learned
    save
    wheel decode all
    content direction.json >"$pictures/direction.json"
    cmp "$pictures/direction.json" <(content direction.bak) || fail "The first save made no backup"
}

save_nothing_and_restore() {
    local key
    start_program
    picture 7-saved
    for key in $(key_names); do
        is_colour "$key" green || fail "$key is not green at the next start"
    done
    tap clear
    answer yes
    await_colour home gray
    save
    [ -z "$(content direction.json)" ] || fail "A file without keys is not empty"
    start_program
    is_colour home gray || fail "home is still there"
    tap clear
    answer no
    program_ended || fail "Exit code $? after No, not 0"
    cmp "$pictures/direction.json" <(content direction.json) || fail "No did not restore the backup"
}
