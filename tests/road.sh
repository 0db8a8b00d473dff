#!/usr/bin/env bash
# road.sh BUILD [EMULATOR...]: the installed program from the first tap to the saved file, all keys of
# the screen on both key lines. Qt's VNC platform takes the taps, so it needs no display server. The
# unit's folder BUILD/road stays, for other builds to compare the file with.
set -euo pipefail

# In namespaces of its own nobody else sees the port, and no process outlives the test.
if [ "$1" != alone ]; then
    as_user=()
    [ "$(id -u)" = 0 ] || as_user=(--map-root-user)
    exec unshare "${as_user[@]}" --net --pid --fork --mount-proc --kill-child "$0" alone "$@"
fi
build=$2
shift 2
unit=$build/road
log=$unit/log.txt
port=5900
project=$(cd "$(dirname "$0")/.." && pwd)
. "$project/desk/headunit.sh"
. "$project/desk/screen.sh"

# pointer BUTTON X Y: RFB's message of that name.
pointer() {
    local message
    printf -v message '\\x%02x' 5 "$1" $(($2 >> 8)) $(($2 & 255)) $(($3 >> 8)) $(($3 & 255))
    printf '%b' "$message" >&3
}

tap() {
    local x y
    read -r x y <<<"$(place "$1")"
    pointer 1 "$x" "$y"
    pointer 0 "$x" "$y"
}

listens() {
    (: <>/dev/tcp/127.0.0.1/$port) 2>/dev/null
}

connect() {
    exec 3<>/dev/tcp/127.0.0.1/$port
    head -c 12 <&3 >/dev/null # the version
    printf 'RFB 003.003\n' >&3
    head -c 4 <&3 >/dev/null # no password
    printf '\1' >&3
    head -c 24 <&3 >/dev/null # the screen's format
}

# One change of the file for each reading.
write_reading() {
    printf '%d:%s' ${#1} "$1" 1<>"$unit/$nvm/swc_keys"
}

# A tap takes its time: the samples before it find no selected key and are dropped.
sampled() {
    write_reading "$2"
    grep -qF "value($1,$2)" "$log"
}

# teach NAME CODE LINE VALUE: two samples and the release.
teach() {
    tap "$1"
    await 10 "the first sample of $1" sampled "$2" "$3,$4,4000,4094"
    await 10 "the second sample of $1" sampled "$2" "$3,$(($4 + 5)),4001,4094"
    write_reading "$3,4095,4095,4095"
    await 10 "$1 to be learned" grep -qF "Velmora $2 is success" "$log"
}

ip link set lo up
rm -rf "$unit"
prepare_head_unit "$unit" "$build"
lay_out 800 480
(cd "$unit" && QT_QPA_PLATFORM=vnc:size=800x480:port=$port exec "$@" application/bin/velmora) \
    >"$log" 2>&1 &
program=$!
at_exit "tail -n 20 $log"
await 20 "the VNC server" listens
connect

taught=0
while read -r name code _; do
    teach "$name" "$code" $((2 + taught % 2)) $((taught * 150 + 100))
    taught=$((taught + 1))
done < <(tr -d '\r' <"$project/img/btListInfo.txt" | grep -v '^#')
grep -qx 1 "$unit/$nvm/swc_flags"
tap save
wait $program
grep -qx 0 "$unit/$nvm/swc_flags"
[ "$(grep -c '"direction_event"' "$unit/$nvm/direction.json")" = "$taught" ]
cmp "$unit/$nvm/direction.json" "$unit/$nvm/direction.bak"
