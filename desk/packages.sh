# Sourced by run, test and emulator/make: the Debian packages that they need.

build_packages=(g++ cmake make ninja-build qtbase5-dev qttools5-dev qttools5-dev-tools)
screen_packages=(xvfb xdotool imagemagick fonts-droid-fallback fonts-dejavu-core)
deb_packages=(dpkg-dev file lintian systemd) # to package the program and check the package
check_packages=(strace valgrind "${deb_packages[@]}" clang-format clang-tidy librsvg2-bin optipng)
arm_packages=("${deb_packages[@]}" g++-arm-linux-gnueabihf qemu-user)

# Installs what is missing, as root or through sudo.
require_packages() {
    local missing=() as_root=() install=(apt-get install -y -q --no-install-recommends)
    for package in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
            missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    [ "$(id -u)" = 0 ] || as_root=(sudo)
    "${as_root[@]}" apt-get update -q || true # an outdated index may be good enough
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive "${install[@]}" "${missing[@]}" || {
        echo "Packages are missing. Let root run this, then try again:" >&2
        echo "  ${install[*]} ${missing[*]}" >&2
        exit 1
    }
}

# one_at_a_time ARGUMENT...: restarts the calling script under a lock, because two scripts at once
# would build in the same folders.
one_at_a_time() {
    [ -z "${SWC_ONLY_ONE-}" ] || return 0
    mkdir -p build
    flock --nonblock build/lock true ||
        echo "Another command is at work here; this one goes on when that has ended."
    SWC_ONLY_ONE=yes exec flock --close build/lock "$PWD/${0##*/}" "$@"
}
