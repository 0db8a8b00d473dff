# Sourced: a folder that stands in for the root of a head unit.

nvm=media/flash/nvm # where the driver and the program meet

# prepare_head_unit FOLDER BUILD: installs the build's program and catalogues, and makes the files
# that the platform provides. What was learned there before is kept.
prepare_head_unit() {
    prepare_platform "$1"
    DESTDIR=$(realpath "$1") cmake --install "$2" >/dev/null
}

# With the language $language: 1 is Chinese.
prepare_platform() {
    mkdir -p "$1/$nvm/Corvane"
    : >"$1/$nvm/swc_keys"
    printf 0 >"$1/$nvm/swc_flags"
    printf 'SystemLanguageId=%s\n' "${language-0}" >"$1/$nvm/Corvane/UserData.ini"
}
