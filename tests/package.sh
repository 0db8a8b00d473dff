#!/usr/bin/env bash
# package.sh SOURCE BUILD TOOLCHAIN SYSROOT [EMULATOR...]: the product's packages hold the same tree and
# Debian's checker finds no fault in it; the Debian one installs into an empty root, where its
# dependencies are counted as installed that the machine or the sysroot has, and the program starts
# there, in another folder than the root to show that its paths are absolute.
set -euo pipefail

# In namespaces of its own no mount and no process outlives the test.
if [ "$1" != alone ]; then
    exec unshare --map-root-user --mount --pid --fork --mount-proc --kill-child "$0" alone "$@"
fi
PATH+=:/usr/sbin:/sbin # dpkg and chroot need what a user's PATH leaves out
project=$2 build=$3/package toolchain=$4 sysroot=$5 emulator=("${@:6}")
root=$build/root
. "$project/desk/stage.sh"

package() {
    local texts
    cd "$project"
    texts=$(cat languages/*.ts)
    rm -f "$build"/*.deb "$build"/*.tar.gz
    cmake --preset product -B "$build" \
        ${toolchain:+-DCMAKE_TOOLCHAIN_FILE="$toolchain" -DSWC_SYSROOT="$sysroot"}
    (umask 022 && cmake --build "$build" --target package)
    [ "$(cat languages/*.ts)" = "$texts" ] # a build changes no source
    [ "$(ls "$build/bin")" = velmora ] # and makes nothing of the desk
}

check_packages() {
    local version
    diff <(gunzip -c "$build"/*.tar.gz | files) <(dpkg-deb --fsys-tarfile "$build"/*.deb | files)
    lintian --allow-root --fail-on error,warning "$build"/*.deb 2> >(grep -v 'root privileges' >&2)
    version=$(dpkg-parsechangelog -l docs/changelog -S Version)
    [ "$(dpkg-deb -f "$build"/*.deb Version)" = "$version" ]
    strings "$build/bin/velmora" | grep -x "Velmora $version"
}

# The files of a tar archive.
files() {
    tar -t | sed 's|^\./||' | grep -v '/$' | sort
}

install_package() {
    local database=$root/var/lib/dpkg
    mkdir -p "$database"/{info,updates}
    cp "$sysroot/var/lib/dpkg/status" "$database"
    printf '%s\n' "$(dpkg --print-architecture)" "$(dpkg-deb -f "$build"/*.deb Architecture)" |
        uniq >"$database/arch"
    dpkg --root="$root" --log=/dev/null -i "$build"/*.deb \
        2> >(grep -v '^dpkg: warning: files list' >&2)
}

# The root gets the machine's libraries and the emulator; all that the program shares with the
# platform stays the root's own.
bind_machine() {
    local place
    for place in /bin /lib* /usr /etc /dev /proc "$project" "$build" ${sysroot:+"$sysroot"}; do
        mkdir -p "$root$place"
        mount --rbind "$place" "$root$place" # with what is mounted below, as a user must
    done
}

package
check_packages
mkdir -p "$root"
mount -t tmpfs tmpfs "$root" # nothing is left to delete, and so no mount is ever deleted into
mkdir -p "$root"/{tmp,run}
install_package
prepare_platform "$root"
cp "$root/usr/lib/systemd/system/velmora.service" "$root/tmp" # the machine's /usr hides it
bind_machine
chroot "$root" systemd-analyze verify /tmp/velmora.service
log=$build/log.txt
chroot "$root" env -C /tmp QT_QPA_PLATFORM=offscreen "${emulator[@]}" /application/bin/velmora >"$log" 2>&1 &
program=$!
await 20 "the program's window" grep -qsE '^x:[0-9]+, y:[0-9]+$' "$log"
await 5 "the learning flag" grep -qx 1 "$root/$nvm/swc_flags"
grep -qF '[swc_print] load true' "$log"
kill -KILL $program
