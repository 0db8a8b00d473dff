#!/usr/bin/env bash
# checks.sh CHECK SOURCE BUILD: one check of the project's files.
set -euo pipefail

source=$2
build=$3
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$source"

fail() {
    echo "$*" >&2
    exit 1
}

cpp_files() {
    git ls-files -- '*.cpp' '*.h'
}

check_format() {
    cpp_files | xargs clang-format --dry-run -Werror
}

check_tidy() {
    git ls-files -- 'src/*.cpp' 'simulator/*.cpp' | xargs -P 2 -n 4 clang-tidy --quiet -p "$build" \
        2> >(grep -v 'warnings generated' >&2)
}

check_icons() {
    img/render --check
}

# Every text of the program is translated, and every translation is of a text of the program.
check_texts() {
    local catalogue
    cp languages/*.ts "$scratch"
    lupdate -silent -locations none src -ts "$scratch"/*.ts
    for catalogue in "$scratch"/*.ts; do
        [ "$(grep -c '<source>' "$catalogue")" -gt 0 ] || fail "$catalogue is empty"
        ! grep -B 6 -E 'type="(unfinished|vanished|obsolete)"' "$catalogue" ||
            fail "${catalogue##*/} does not match the program"
    done
}

# A build without any option has the unit's absolute paths, and installs the unit's tree.
check_product() {
    local path
    cat languages/*.ts >"$scratch/texts.before"
    cmake -S . -B "$scratch/build" >/dev/null
    cmake --build "$scratch/build" >/dev/null
    DESTDIR=$scratch/unit cmake --install "$scratch/build" >/dev/null
    for path in bin/velmora languages/Velmora_en_gb.qm languages/Velmora_zh_rCN.qm; do
        [ -s "$scratch/unit/application/$path" ] || fail "$path is not installed"
    done
    for path in media/flash/nvm/swc_keys application/languages/Velmora_en_gb.qm; do
        grep -qaP "\\x00/$path\\x00" "$scratch/unit/application/bin/velmora" ||
            fail "the program does not use /$path"
    done
    ! find "$scratch/build" -name 'swc-*' -o -name 'tst_*' | grep . || fail "more than the product"
    cmp "$scratch/texts.before" <(cat languages/*.ts) || fail "the build changed the texts"
}

"check_$1"
