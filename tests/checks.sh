#!/usr/bin/env bash
# checks.sh CHECK SOURCE BUILD: one check of the project's files.
set -euo pipefail

cd "$2"
case $1 in
format)
    find */ -maxdepth 1 -name '*.cpp' -o -name '*.h' | xargs clang-format --dry-run -Werror
    ;;
tidy)
    find */ -maxdepth 1 -name '*.cpp' | xargs -P 2 -n 1 clang-tidy --quiet -p "$3" \
        2> >(grep -v 'warnings generated' >&2)
    ;;
texts) # every text of the program is translated, and every translation is of a text of the program
    scratch=$(mktemp -d)
    trap 'rm -rf "$scratch"' EXIT
    cp languages/*.ts "$scratch"
    lupdate -silent -locations none src -ts "$scratch"/*.ts
    ! grep -B 6 -E 'type="(unfinished|vanished|obsolete)"' "$scratch"/*.ts
    ;;
esac
