#!/usr/bin/env bash
# start.sh BUILD [EMULATOR...]: what the installed program logs until its window is there, for the
# language settings and for catalogues that are missing or damaged.
set -euo pipefail

project=$(cd "$(dirname "$0")/.." && pwd)
. "$project/desk/headunit.sh"
. "$project/desk/stage.sh"
build=$1
shift
emulator=("$@")
unit=$(mktemp -d)
at_exit "rm -rf $unit"
languages=application/languages
log=$unit/log.txt

has_window() {
    grep -q '^x:' "$log"
}

# The names of the fonts are this machine's, but they are as many as the line says.
without_fonts() {
    awk -F '"' '
        /^\[swc_print\] list \("/ && $NF == ") size " int(NF / 2) { print "fonts"; next }
        /^x:/ { print "window"; exit }
        /^\[/ { print }'
}

# starts NAME SETTING CATALOGUE LOAD INSTALL: LOAD is "-" where there is no catalogue.
starts() {
    local program path="./$languages/Velmora_$3.qm"
    echo "$2" >"$unit/$nvm/Corvane/UserData.ini"
    : >"$log"
    (cd "$unit" && QT_QPA_PLATFORM=offscreen exec "${emulator[@]}" application/bin/velmora) \
        >"$log" 2>&1 &
    program=$!
    await 20 "the window" has_window
    kill -KILL $program
    wait $program 2>/dev/null || true
    {
        [[ $2 != SystemLanguageId* ]] ||
            echo "[virtual_print][getLanguageIdx]language idx:$(tr -dc 0-9 <<<"${2#*=}")"
        if [ "$4" = - ]; then
            echo "[swc_print] no exist."
        else
            echo "[swc_print] load $4"
            echo "[swc_print] path \"$path\"  install $5"
        fi
        echo "fonts"
        echo "[swc_print]: Start Velmora..."
        echo "window"
    } | diff - <(without_fonts <"$log") || {
        echo "Failed: $1" >&2
        exit 1
    }
}

prepare_head_unit "$unit" "$build"
starts "English" SystemLanguageId=0 en_gb true true
starts "Chinese" SystemLanguageId=1 zh_rCN true true
starts "a language without a catalogue" SystemLanguageId=2 en_gb true true
starts "no language" "Language=1" en_gb true true
echo damaged >"$unit/$languages/Velmora_en_gb.qm"
starts "a damaged catalogue" SystemLanguageId=0 en_gb false false
rm "$unit/$languages/Velmora_zh_rCN.qm"
starts "a missing catalogue" SystemLanguageId=1 zh_rCN - -
