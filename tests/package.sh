#!/usr/bin/env bash
# package.sh SOURCE BUILD TOOLCHAIN SYSROOT [EMULATOR...]: builds both packages as an ordinary user
# and checks them. The program starts in a root that has the package's /application.
set -euo pipefail

if [ "$1" = unpack ]; then shift && unpack=yes; fi
source=$1 build=$2/package toolchain=${3-} sysroot=${4-} emulator=("${@:5}")
tree=$build/tree root=$build/root log=$build/log.txt
PATH+=:/usr/sbin:/sbin # an ordinary user's has no chroot

if [ -z "${unpack-}" ]; then
    rm -rf "$build"/{*.deb,*.tar.gz,tree}
    cmake --preset product -S "$source" -B "$build" \
        ${toolchain:+-DCMAKE_TOOLCHAIN_FILE="$toolchain" -DSWC_SYSROOT="$sysroot"}
    (umask 022 && unshare --map-user=1000 --map-group=1000 cmake --build "$build" --target package)
    lintian --allow-root --fail-on error,warning "$build"/*.deb
    tar -tv --numeric-owner -f "$build"/*.tar.gz | awk '$2 != "0/0"; $2 != "0/0" { exit 1 }'
    # No mount and no process outlives the test.
    exec unshare --map-root-user --mount --pid --fork --mount-proc --kill-child "$0" unpack "$@"
fi

mkdir -p "$tree"/{etc,media/flash/nvm} "$root"
tar -x -f "$build"/*.tar.gz -C "$tree"
systemd-sysusers --root="$tree"
[ "$(grep -cE '^(input|video):.*:velmora$' "$tree/etc/group")" = 2 ]

mount -t tmpfs tmpfs "$root"
for folder in /*/ "$tree"/{application,media}; do
    mkdir -p "$root/$(basename "$folder")"
    mount --rbind "$folder" "$root/$(basename "$folder")"
done
chroot "$root" systemd-analyze verify "$tree/usr/lib/systemd/system/velmora.service"
flag=$tree/media/flash/nvm/swc_flags
printf 0 >"$flag"
chroot "$root" env -C /tmp QT_QPA_PLATFORM=offscreen "${emulator[@]}" \
    /application/bin/velmora >"$log" 2>&1 &
until [ "$(cat "$flag")" = 1 ]; do
    kill -0 $!
    sleep 0.1
done
grep -F '[swc_print] load true' "$log"
kill $!
