#!/usr/bin/env bash
# checks.sh CHECK SOURCE BUILD: one check of the project's files.
set -euo pipefail

source=$2 build=$3
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$source"

check_format() {
    git ls-files -- '*.cpp' '*.h' | xargs clang-format --dry-run -Werror
}

check_tidy() {
    git ls-files -- {src,wheel,tests,bench}/'*.cpp' | xargs -P 2 -n 1 \
        clang-tidy --quiet -p "$build" --extra-arg=-DFUZZ_TARGET=reading 2> >(grep -v 'warnings generated' >&2)
}

# Every text of the program is translated, and every translation is of a text of the program.
check_texts() {
    cp languages/*.ts "$scratch"
    lupdate -silent -locations none src -ts "$scratch"/*.ts
    ! grep -B 6 -E 'type="(unfinished|vanished|obsolete)"' "$scratch"/*.ts
}

# Who may not install packages, and can't be asked for a password, is told the one command to run.
check_packages() {
    printf '#!/bin/sh\nexit 1\n' | tee "$scratch/sudo" >"$scratch/apt-get"
    chmod +x "$scratch"/*
    tests/as_user.sh env PATH="$scratch:/usr/bin:/bin" bash -c '. desk/packages.sh
        (require_packages make velmora-nowhere) || echo It ended' </dev/null |& tee "$scratch/out"
    grep -A 1 -x '  apt-get install --no-install-recommends velmora-nowhere' "$scratch/out" | grep -qx 'It ended'
}

"check_$1"
