# Sourced: the stage on an emulated head unit with kernel, frame buffer, touch panel, and power that
# can be cut. Its files are in the folder $run.

. "$project/desk/stage.sh"
PATH+=:/usr/sbin:/sbin # the file system's tools, which a user's PATH leaves out

panel=penmount3000 # for several fingers; touchit213 is for one
images=$project/build/emulator
touches=0
machine=
declare -A to from # descriptors of the emulator's lines

# open_stage WIDTH HEIGHT [CONFIGURATION]
open_stage() {
    lay_out "$1" "$2"
    "$project/emulator/make"
    run=$(mktemp -d)
    at_exit "pull_the_plug; rm -rf '$run'"
    make_platform_files "$run"
    [ $# -lt 3 ] || echo "$3" >"$run/$nvm/direction.json"
    mke2fs -q -t ext4 -L flash -d "$run/media/flash" "$run/medium.img" 16M >/dev/null
    qemu-img convert -O qcow2 "$run/medium.img" "$run/flash.img"
    plug_in
}

# plug_in OPTION...: starts the emulator with these options of its own.
plug_in() {
    local line lines=()
    for line in monitor panel wheel shell; do
        rm -f "$run/$line".{in,out}
        mkfifo "$run/$line".{in,out}
        exec {to[$line]}<>"$run/$line.in" {from[$line]}<>"$run/$line.out"
        lines+=(-chardev "pipe,id=$line,path=$run/$line")
        [ $line = monitor ] || lines+=(-device "pci-serial,chardev=$line")
    done
    to_wheel=${to[wheel]} from_wheel=${from[wheel]}
    : >"$run/console.txt"
    # With more memory, the kernel fails to set up PCI and the screen.
    qemu-system-arm -M virt,highmem=off -cpu cortex-a15 -m 256 -display none \
        -nodefaults -no-user-config -no-reboot -global virtio-mmio.force-legacy=false \
        -kernel "$images/vmlinuz" -initrd "$images/first.gz" \
        -append "console=ttyAMA0 loglevel=3 vt.global_cursor_default=0 panel=$panel" \
        -device "virtio-gpu-device,xres=$width,yres=$height" \
        -device virtio-blk-device,drive=root -device virtio-blk-device,drive=flash \
        -drive "if=none,id=root,file=$images/root.img,format=raw,readonly=on" \
        -drive "if=none,id=flash,file=$run/flash.img,format=qcow2,cache=writethrough" \
        -chardev "file,id=console,path=$run/console.txt,append=on" -serial chardev:console \
        "${lines[@]}" -mon chardev=monitor,mode=control "$@" 2>>"$run/emulator.txt" &
    machine=$!
    monitor qmp_capabilities
}

# Kills the emulator, so that nothing more is written to the flash.
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

# monitor COMMAND [ARGUMENTS]: sends a command to the emulator's monitor; arguments are in JSON.
monitor() {
    ask "${to[monitor]}" "${from[monitor]}" '{"return": *' \
        "{\"execute\": \"$1\", \"arguments\": {${2-}}}" >>"$run/emulator.txt"
}

# The head unit starts the program after its boot.
start_program() {
    if has_ended; then
        : >"$run/console.txt"
        inside '(setsid /etc/program &)'
    fi
    await 90 "the program's window" is_colour save gray
}

program_ended() {
    await 20 "the program to end" has_ended
    return "$(sed -n 's/.*\[program\] end \([0-9]*\).*/\1/p' "$run/console.txt")"
}

has_ended() { grep -qF '[program] end' "$run/console.txt"; }

# Sends the bytes of the panel, whose coordinates go from 0 to 2047. Every second tap is shifted by
# one: the kernel reports only changed coordinates, and a program that has just started needs both.
touch_screen() {
    local x y down bytes
    touches=$((1 - touches))
    x=$((($1 * 2 + 1) * 1024 / width + touches)) y=$((($2 * 2 + 1) * 1024 / height + touches))
    for down in 1 0; do
        if [ $panel = touchit213 ]; then
            bytes=($((128 + down)) $((x >> 7)) $((x & 127)) $((y >> 7)) $((y & 127)))
        else
            bytes=($((64 + 48 * down)) $((x & 255)) $((x >> 8)) $((y & 255)) $((y >> 8)))
            bytes+=($((255 - (bytes[0] + bytes[1] + bytes[2] + bytes[3] + bytes[4]) % 256)))
        fi
        printf '%b' "$(printf '\\x%02x' "${bytes[@]}")" >&"${to[panel]}"
        [ $down = 0 ] || sleep 0.1
    done
}

# A PPM file ends with its pixels, so the offset is counted from its end. A PNG takes longer.
pixel() {
    monitor screendump "\"filename\": \"$run/screen.ppm\""
    tail -c $((3 * ((height - $2) * width - $1))) "$run/screen.ppm" |
        od -An -N 3 -t x1 | tr -d ' \n' | tr a-f A-F
}

screenshot() { monitor screendump "\"filename\": \"$1\", \"format\": \"png\""; }
content() { inside "base64 /$nvm/$1" | base64 -d; }

# inside COMMAND: runs it in the head unit's shell, with its output and exit code.
inside() {
    ask "${to[shell]}" "${from[shell]}" 'done *' "$1; echo done \$?"
    return "${last#done }"
}
