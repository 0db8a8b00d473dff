#!/usr/bin/env bash
# ./test armhf: the head unit's build and its tests under an emulator, and the same file from the
# program for this machine and the one for the unit.
set -euo pipefail

cd "$(dirname "$0")/.."
. desk/packages.sh
require_packages "${build_packages[@]}" "${unit_packages[@]}" "${arm_packages[@]}"
cmake/make-sysroot build/sysroot
for preset in desk armhf-desk; do
    cmake --preset $preset
    cmake --build --preset $preset
done
ctest --preset armhf-desk
ctest --preset desk --tests-regex '^road$'
cmp build/desk/road/media/flash/nvm/direction.json \
    build/armhf-desk/road/media/flash/nvm/direction.json
echo "Both programs wrote the same file"
