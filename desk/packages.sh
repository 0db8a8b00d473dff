# Sourced by the commands: the Debian packages that each needs.

build_packages=(g++ cmake make ninja-build qtbase5-dev qttools5-dev qttools5-dev-tools)
screen_packages=(xvfb xdotool imagemagick fonts-droid-fallback fonts-dejavu-core)
deb_packages=(dpkg-dev file lintian systemd) # to package the program and check the package
check_packages=(strace valgrind "${deb_packages[@]}" clang-format clang-tidy librsvg2-bin optipng)
arm_packages=("${deb_packages[@]}" g++-arm-linux-gnueabihf qemu-user)

# Installs what is missing; one message and the end of the command where that fails.
require_packages() {
    local missing=() as_root=() output
    for package in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
            missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    if [ "$(id -u)" != 0 ]; then
        as_root=(sudo)
        sudo -n true 2>/dev/null || { [ -t 0 ] && sudo -v; } || {
            echo "Packages are missing. Let root run this, then try again:" >&2
            echo "  apt-get install --no-install-recommends ${missing[*]}" >&2
            exit 1
        }
    fi
    echo "Installing ${missing[*]}"
    # An old index may still do.
    output=$("${as_root[@]}" sh -c 'apt-get update -q
        DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "$@"' \
        sh "${missing[@]}" 2>&1) || {
        echo "Can't install ${missing[*]}: $(tail -n 1 <<<"$output")" >&2
        exit 1
    }
}

# one_at_a_time ARGUMENT...: starts the command again as the only one of its folder; two at once
# would build in the same folders.
one_at_a_time() {
    [ -z "${SWC_ONLY_ONE-}" ] || return 0
    mkdir -p build
    flock --nonblock build/lock true ||
        echo "Another command is at work here; this one goes on when that has ended."
    SWC_ONLY_ONE=yes exec flock --close build/lock "$PWD/${0##*/}" "$@"
}
