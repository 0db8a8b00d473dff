#!/usr/bin/env bash
# package.sh SOURCE BUILD TOOLCHAIN SYSROOT [EMULATOR...]: the product's packages hold the same tree;
# the Debian one installs into an empty root, where its dependencies are counted as installed that
# the machine or the sysroot has, and the program starts there.
set -euo pipefail

# In namespaces of its own no mount and no process outlives the test.
if [ "$1" != alone ]; then
    as_user=()
    [ "$(id -u)" = 0 ] || as_user=(--map-root-user)
    exec unshare "${as_user[@]}" --mount --pid --fork --mount-proc --kill-child "$0" alone "$@"
fi
project=$2
build=$3/package
toolchain=$4
sysroot=$5
emulator=("${@:6}")
root=$build/root
. "$project/desk/headunit.sh"
. "$project/desk/stage.sh"

package() {
    rm -f "$build"/*.deb "$build"/*.tar.gz
    cmake -S "$project" -B "$build" -G Ninja \
        ${toolchain:+-DCMAKE_TOOLCHAIN_FILE="$toolchain" -DSWC_SYSROOT="$sysroot"}
    cmake --build "$build"
    (cd "$build" && cpack)
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
    if ! dpkg --root="$root" --log=/dev/null -i "$build"/*.deb 2>"$build/dpkg.log"; then
        grep -v '^dpkg: warning: files list' "$build/dpkg.log" >&2
        exit 1
    fi
}

# The root gets the machine's libraries and the emulator; all that the program shares with the
# platform stays the root's own.
lend() {
    local place
    for place in /bin /lib* /usr /etc /dev /proc "$project" "$build" $sysroot; do
        if [ -L "$place" ]; then
            cp -P "$place" "$root$place"
        else
            mkdir -p "$root$place"
            mount --bind "$place" "$root$place"
        fi
    done
}

package
mkdir -p "$root"
mount -t tmpfs tmpfs "$root" # nothing is left to delete, and so no mount is ever deleted into
diff <(gunzip -c "$build"/*.tar.gz | files) <(dpkg-deb --fsys-tarfile "$build"/*.deb | files)
mkdir -p "$root/tmp"
install_package
prepare_platform "$root"
lend
log=$build/log.txt
chroot "$root" env QT_QPA_PLATFORM=offscreen "${emulator[@]}" /application/bin/velmora >"$log" 2>&1 &
program=$!
await 20 "the program's window" grep -qE '^x:[0-9]+, y:[0-9]+$' "$log"
await 5 "the learning flag" grep -qx 1 "$root/$nvm/swc_flags"
grep -qF '[swc_print] load true' "$log"
kill -KILL $program
