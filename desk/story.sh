# Sourced after a stage: what a person does with the program from the first tap on.

# tell_story FOLDER: leaves pictures of the main moments there, and the file that was saved.
tell_story() {
    pictures=$1
    moments=0
    mkdir -p "$pictures"
    learn_the_first_key
    press_it_for_another_key
    clear_all_keys
    learn_all_keys
    start_again_and_save_nothing
    bring_the_backup_back
}

# moment NAME: one that is worth a picture.
moment() {
    screenshot "$pictures/$((++moments))-$1.png"
    echo "$1"
}

save() {
    tap save
    expect "exit code 0 after save" program_ended
    driver flag 0
}

learn_the_first_key() {
    start_program
    driver flag 1
    moment start
    teach home
    await 5 "the notice" notice_shows
    moment success
    await 5 "the notice to go" not notice_shows
}

press_it_for_another_key() {
    tap playpause
    await_colour playpause blue
    moment learning
    driver press home 250ms
    await 5 "the notice" notice_shows
    expect "no key is learned twice" is_colour playpause gray
    moment repeat
}

clear_all_keys() {
    tap clear
    await 5 "the question" question_shows
    moment question
    answer yes
    await_colour home gray
    driver flag 11
}

# What was tapped before comes last: by then that selection has timed out and can't end the next one.
learn_all_keys() {
    local key
    for key in $(key_names | grep -vx -e home -e playpause) home playpause; do
        teach "$key"
    done
    moment all-learned
    save
    driver decode all
    content direction.json >"$pictures/direction.json"
    expect "the first save makes the backup" cmp "$pictures/direction.json" <(content direction.bak)
}

start_again_and_save_nothing() {
    local key
    start_program
    moment saved
    for key in $(key_names); do
        expect "$key is still learned" is_colour "$key" green
    done
    tap clear
    answer yes
    await_colour home gray
    save
    content direction.json >"$pictures/without-keys.json"
    expect "a file without keys" test ! -s "$pictures/without-keys.json"
}

bring_the_backup_back() {
    start_program
    expect "no key is left" is_colour home gray
    tap clear
    answer no
    expect "exit code 0 after No" program_ended
    driver flag 0
    expect "the backup is back" cmp "$pictures/direction.json" <(content direction.json)
}
