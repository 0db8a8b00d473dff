# Sourced: the stage on a whole head unit, emulated: kernel, frame buffer, touch panel and plug. A run has
# its files in the folder $run.

. "$project/desk/stage.sh"
PATH+=:/usr/sbin:/sbin # the file system's tools, which a user's PATH leaves out

window_packages=(qemu-system-gui)
panel=penmount3000 # several fingers; touchit213: one; mouse: the pointer in the window
window=(-display none)
images=$project/build/unit
touches=0
machine=
declare -A to from # the emulator's lines

open_stage() {
    lay_out "$1" "$2"
    "$project/desk/make-unit"
    run=$(mktemp -d)
    at_exit "rm -rf '$run'"
    make_flash
    at_exit pull_the_plug
    plug_in
}

# The program's files come to the wheel's folder and stay there.
open_window() {
    panel=mouse window=(-display sdl -device virtio-tablet-device)
    export SDL_MOUSE_FOCUS_CLICKTHROUGH=1 # the click that comes from the wheel's window counts
    open_stage "$1" "$2"
    unit=$images/wheel
    start=("$project/desk/relay" "$run")
    rm -rf "$unit"
    prepare_platform "$unit"
}

make_flash() {
    prepare_platform "$run"
    mke2fs -q -t ext4 -L flash -d "$run/media/flash" "$run/medium.img" 16M >/dev/null
    qemu-img convert -O qcow2 "$run/medium.img" "$run/flash.img"
}

# plug_in OPTION...: of the emulator.
plug_in() {
    local line lines=()
    for line in monitor panel driver shell; do
        rm -f "$run/$line".{in,out}
        mkfifo "$run/$line".{in,out}
        exec {to[$line]}<>"$run/$line.in" {from[$line]}<>"$run/$line.out"
        lines+=(-chardev "pipe,id=$line,path=$run/$line")
        [ $line = monitor ] || lines+=(-device "pci-serial,chardev=$line")
    done
    commands=${to[driver]} replies=${from[driver]}
    : >"$run/console.txt"
    # With more the kernel's PCI and the screen fail.
    qemu-system-arm -M virt,highmem=off -global virtio-mmio.force-legacy=false -cpu cortex-a15 -m 256 \
        -nodefaults -no-user-config -no-reboot -name "Head unit" "${window[@]}" \
        -kernel "$images/vmlinuz" -initrd "$images/first.gz" \
        -append "console=ttyAMA0 loglevel=3 vt.global_cursor_default=0 panel=$panel" \
        -device "virtio-gpu-device,xres=$width,yres=$height" \
        -drive "if=none,id=root,file=$images/root.img,format=raw,readonly=on" \
        -device virtio-blk-device,drive=root \
        -drive "if=none,id=flash,file=$run/flash.img,format=qcow2,cache=writethrough" \
        -device virtio-blk-device,drive=flash "${lines[@]}" -mon chardev=monitor,mode=control \
        -chardev "file,id=console,path=$run/console.txt,append=on" -serial chardev:console \
        "$@" 2>>"$run/emulator.txt" &
    machine=$!
    monitor qmp_capabilities
}

# pull_the_plug: no byte more reaches the flash.
pull_the_plug() {
    local line
    [ -n "$machine" ] || return 0
    kill -KILL "$machine"
    wait "$machine" 2>/dev/null || true
    machine=
    for line in "${to[@]}" "${from[@]}"; do
        exec {line}>&-
    done
}

# monitor COMMAND [ARGUMENTS]: of the emulator, in JSON.
monitor() {
    (ask "${to[monitor]}" "${from[monitor]}" "{\"execute\": \"$1\", \"arguments\": {${2-}}}" \
        >>"$run/emulator.txt") || fail "$(tail -n 1 "$run/emulator.txt")"
}

start_program() {
    if said end; then
        # The last window stays on the screen until something else is shown.
        inside 'cat /dev/zero >/dev/fb0 2>/dev/null' || true
        await 5 "the empty screen" not is_colour save gray
    fi
    launch
    await 30 "the program's window" is_colour save gray
}

# launch: starts the program, unless the unit is about to do so after its boot.
launch() {
    if said end; then
        : >"$run/console.txt"
        inside '(setsid /etc/unit/program &)'
    fi
    await 60 "the emulated unit to start the program" said start
}

# said start|end: on the console, since the program was started last.
said() {
    grep -qF "[unit] $1" "$run/console.txt"
}

program_ended() {
    await 20 "the program to end" said end
    return "$(sed -n 's/^.*\[unit\] end \([0-9]*\).*/\1/p' "$run/console.txt")"
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
    printf '%b' "$(printf '\\x%02x' "${bytes[@]}")" >&"${to[panel]}"
}

# Of a picture whose bytes end with the last pixel's, which is faster than a PNG.
pixel() {
    monitor screendump "\"filename\": \"$run/screen.ppm\""
    tail -c $((3 * ((height - $2) * width - $1))) "$run/screen.ppm" |
        od -An -N 3 -t x1 | tr -d ' \n' | tr a-f A-F
}

screenshot() {
    monitor screendump "\"filename\": \"$1\", \"format\": \"png\""
}

content() {
    inside "base64 /media/flash/nvm/$1" | base64 -d
}

# inside COMMAND: its output and exit code, from the unit's own shell.
inside() {
    ask "${to[shell]}" "${from[shell]}" "$1; echo done \$?"
}

# look_at_medium: what a unit would find that is plugged in again; on_medium NAME prints a file of it.
look_at_medium() {
    qemu-img convert -O raw "$run/flash.img" "$run/medium.img"
    e2fsck -fy "$run/medium.img" >"$run/check.txt" 2>&1 || [ $? = 1 ]
}

on_medium() {
    debugfs -R "cat /nvm/$1" "$run/medium.img" 2>/dev/null
}
