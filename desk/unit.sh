# Sourced after stage.sh: the stage on a whole head unit, emulated: kernel, frame buffer, touch panel and
# plug. A run has its files in the folder $run.

PATH+=:/usr/sbin:/sbin # the file system's tools, which a user's PATH leaves out

panel=penmount3000 # several fingers; touchit213: one; mouse: the pointer in the window
language=0
window=none # the emulator's display
images=$project/build/unit
starts=0
touches=0
machine=

open_stage() {
    command -v qemu-system-arm >/dev/null || {
        echo "There is no qemu-system-arm: install Debian's package of that name" >&2
        exit 1
    }
    lay_out "$1" "$2"
    "$project/desk/make-unit"
    make_flash
    at_exit pull_the_plug
    plug_in
}

make_flash() {
    local files=$run/flash
    mkdir -p "$files/nvm/Corvane"
    printf 'SystemLanguageId=%s\n' "$language" >"$files/nvm/Corvane/UserData.ini"
    mke2fs -q -t ext4 -L flash -d "$files" "$run/flash.img" 16M >/dev/null
}

# plug_in OPTION...: of the emulator.
plug_in() {
    local line
    for line in panel driver shell monitor; do
        rm -f "$run/$line".{in,out}
        mkfifo "$run/$line".{in,out}
    done
    : >"$run/console.txt"
    starts=0
    # With more the kernel's PCI and the screen fail.
    qemu-system-arm -M virt,highmem=off -global virtio-mmio.force-legacy=false -cpu cortex-a15 -m 256 \
        -nodefaults -no-user-config -no-reboot -name "Head unit" -display "$window" \
        -kernel "$images/vmlinuz" -initrd "$images/first.gz" \
        -append "console=ttyAMA0 loglevel=3 vt.global_cursor_default=0 panel=$panel" \
        -device "virtio-gpu-device,xres=$width,yres=$height" -device virtio-tablet-device \
        -drive "if=none,id=root,file=$images/root.img,format=raw,readonly=on" \
        -device virtio-blk-device,drive=root \
        -drive "if=none,id=flash,file=$run/flash.img,format=raw,cache=writethrough" \
        -device virtio-blk-device,drive=flash \
        -chardev "pipe,id=panel,path=$run/panel" -device pci-serial,chardev=panel \
        -chardev "pipe,id=driver,path=$run/driver" -device pci-serial,chardev=driver \
        -chardev "pipe,id=shell,path=$run/shell" -device pci-serial,chardev=shell \
        -chardev "pipe,id=monitor,path=$run/monitor" -mon chardev=monitor,mode=control \
        -serial "file:$run/console.txt" "$@" 2>"$run/emulator.txt" &
    machine=$!
    exec {panel_line}<>"$run/panel.in" {commands}<>"$run/driver.in" {replies}<>"$run/driver.out" \
        {shell_in}<>"$run/shell.in" {shell_out}<>"$run/shell.out" \
        {monitor_in}<>"$run/monitor.in" {monitor_out}<>"$run/monitor.out"
    monitor qmp_capabilities >/dev/null
}

# pull_the_plug: no byte more reaches the flash.
pull_the_plug() {
    local line
    [ -n "$machine" ] || return 0
    kill -KILL "$machine"
    wait "$machine" 2>/dev/null || true
    machine=
    for line in $panel_line $commands $replies $shell_in $shell_out $monitor_in $monitor_out; do
        exec {line}>&-
    done
}

# monitor COMMAND [ARGUMENTS]: of the emulator, in JSON; prints what it returns.
monitor() {
    local reply
    echo '{"execute":"'"$1"'"'"${2:+,\"arguments\":{$2\}}"'}' >&$monitor_in
    while read -r -t 20 reply <&$monitor_out; do
        case $reply in
        *'"return"'*) echo "$reply" && return ;;
        *'"error"'*) break ;;
        esac
    done
    echo "The emulated unit does not $1: ${reply:-$(tail -n 1 "$run/emulator.txt")}" >&2
    exit 1
}

# The window of the last start stays on the screen until something else is shown.
start_program() {
    if [ $((++starts)) -gt 1 ]; then
        inside 'cat /dev/zero >/dev/fb0 2>/dev/null' || true
        await 5 "the empty screen" screen_is_empty
        inside '(setsid /etc/unit/program &)'
    fi
    await 60 "the emulated unit to start the program" said start
    await 30 "the program's window" is_colour save gray
}

screen_is_empty() {
    ! is_colour save gray
}

# said start|end: on the console, as often as the program was started.
said() {
    [ "$(grep -cF "[unit] $1" "$run/console.txt")" -ge "$starts" ]
}

program_ended() {
    await 20 "the program to end" said end
    return "$(tr -d '\r' <"$run/console.txt" | sed -n 's/^.*\[unit\] end //p' | tail -n 1)"
}

# No finger lands on the same line twice. The kernel tells only what has changed, so a program that
# has started since would not know the line.
touch_screen() {
    touches=$((1 - touches))
    finger down "$1" "$2"
    sleep 0.1
    finger up "$1" "$2"
}

# finger down|up X Y: the bytes of the panel, on which the screen is 2048 x 2048.
finger() {
    local x=$((($2 * 2 + 1) * 1024 / width + touches)) y=$((($3 * 2 + 1) * 1024 / height + touches)) bytes
    if [ $panel = touchit213 ]; then
        bytes=(128 $((x >> 7)) $((x & 127)) $((y >> 7)) $((y & 127)))
        [ "$1" = up ] || bytes[0]=129
    else
        bytes=(64 $((x & 255)) $((x >> 8)) $((y & 255)) $((y >> 8)))
        [ "$1" = up ] || bytes[0]=112
        bytes+=($((255 - (bytes[0] + bytes[1] + bytes[2] + bytes[3] + bytes[4]) % 256)))
    fi
    printf '%b' "$(printf '\\x%02x' "${bytes[@]}")" >&$panel_line
}

# Behind the head of the picture, which says its size and depth.
pixel() {
    local head
    head=$(printf 'P6\n%d %d\n255\n.' "$width" "$height")
    monitor screendump "\"filename\":\"$run/screen.ppm\"" >/dev/null
    od -An -v -tx1 -j $((${#head} - 1 + 3 * ($2 * width + $1))) -N 3 "$run/screen.ppm" |
        tr -d ' \n' | sed 's/.*/#\U&/'
}

screenshot() {
    monitor screendump "\"filename\":\"$1\",\"format\":\"png\"" >/dev/null
}

content() {
    inside "base64 /media/flash/nvm/$1" | base64 -d
}

# inside COMMAND: its output and exit code, from the unit's own shell.
inside() {
    local reply
    echo "$1; echo done \$?" >&$shell_in
    while read -r -t 30 reply <&$shell_out; do
        reply=${reply%$'\r'}
        case $reply in
        'done '*) return "${reply#done }" ;;
        *) echo "$reply" ;;
        esac
    done
    echo "The emulated unit's shell does not answer: $1" >&2
    exit 1
}

# look_at_medium: what a unit would find that is plugged in again; on_medium NAME prints a file of it.
look_at_medium() {
    cp "$run/flash.img" "$run/medium.img"
    e2fsck -fy "$run/medium.img" >"$run/check.txt" 2>&1 || [ $? = 1 ]
}

on_medium() {
    debugfs -R "cat /nvm/$1" "$run/medium.img" 2>/dev/null
}

# freeze: the machine stands still, for unfreeze to go on from here as often as wanted.
freeze() {
    monitor stop >/dev/null
    cp "$run/flash.img" "$run/frozen.img"
    monitor migrate "\"uri\":\"exec:cat >'$run/frozen'\"" >/dev/null
    await 30 "the frozen unit" monitor_says query-migrate completed
    pull_the_plug
}

unfreeze() {
    cp "$run/frozen.img" "$run/flash.img"
    plug_in -incoming "exec:cat '$run/frozen'"
    await 30 "the frozen unit" monitor_says query-status paused
    monitor cont >/dev/null
    starts=1
}

monitor_says() {
    monitor "$1" | grep -q "\"status\": *\"$2\""
}
