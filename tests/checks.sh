#!/usr/bin/env bash
# checks.sh CHECK SOURCE BUILD: one check of the project's files.
set -euo pipefail

source=$2 build=$3
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$source"

fail() {
    echo "$*" >&2
    exit 1
}

check_format() {
    git ls-files -- '*.cpp' '*.h' | xargs clang-format --dry-run -Werror
}

check_tidy() {
    git ls-files -- {src,simulator,tests,bench}/'*.cpp' | xargs -P 2 -n 1 \
        clang-tidy --quiet -p "$build" --extra-arg=-DFUZZ_TARGET=reading 2> >(grep -v 'warnings generated' >&2)
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

# Who may not install packages, and can't be asked for a password, is told the one command to run.
check_packages() {
    printf '#!/bin/sh\nexit 1\n' | tee "$scratch/sudo" >"$scratch/apt-get"
    chmod +x "$scratch"/*
    ! tests/as_user.sh env PATH="$scratch:/usr/bin:/bin" bash -c \
        '. desk/packages.sh && require_packages make velmora-nowhere' </dev/null >"$scratch/out" 2>&1 ||
        fail "no package is missing"
    grep -qx '  apt-get install --no-install-recommends velmora-nowhere' "$scratch/out" ||
        fail "$(cat "$scratch/out")"
}

"check_$1"
