# Sourced to download Debian's armhf packages without changing this machine.

# report_to LOG WHAT: sends output to the log, and tells descriptor 3, the terminal, of a failure.
report_to() {
    log=$1 what=$2
    exec 3>&2 >"$log" 2>&1
    trap '[ $? = 0 ] || echo "Making $what failed: $(tail -n 1 "$log"); see $log" >&3' EXIT
}

# is_newer STAMP PLACE...: true if the stamp is newer than every file in these places.
is_newer() {
    [ -e "$1" ] && [ -z "$(find "${@:2}" -newer "$1")" ]
}

# fetch FOLDER PACKAGE...: downloads them and their dependencies into the folder's archives. It uses
# this machine's package sources, keys and settings, but not its package database.
fetch() {
    apt=$1
    mkdir -p "$apt"/{lists,archives}/partial
    : >"$apt/status"
    cat >"$apt/apt.conf" <<SETTINGS
#clear APT::Architectures;
#clear APT::Update;
#clear DPkg;
APT::Architecture "armhf";
APT::Architectures { "armhf"; };
APT::Sandbox::User "root";
Dir::State "$apt";
Dir::State::status "$apt/status";
Dir::Cache "$apt";
SETTINGS
    private_apt update || true # one of several sources may be out of reach
    private_apt autoclean
    private_apt --no-install-recommends --download-only install "${@:2}"
}

private_apt() {
    apt-get -q -y -c "$apt/apt.conf" "$@"
}
