# Sourced by what makes a folder of the packages for the unit's processor.

# report_to LOG WHAT: from here on the output goes to the log; the terminal is 3, and is told where
# making that fails.
report_to() {
    log=$1 what=$2
    exec 3>&2 >"$log" 2>&1
    trap '[ $? = 0 ] || echo "Can'\''t make $what: $(tail -n 1 "$log"); see $log" >&3' EXIT
}

# is_newer STAMP PLACE...: than all files there.
is_newer() {
    [ -e "$1" ] && [ -z "$(find "${@:2}" -newer "$1")" ]
}

# fetch FOLDER PACKAGE...: and all that they need, into the folder's archives. What that holds already
# is used again. The apt has lists, a cache and a state of its own, so nothing changes on this
# machine; only its package sources, keys and apt settings are read.
fetch() {
    apt=$1
    mkdir -p "$apt"/{lists,archives}/partial
    : >"$apt/status"
    # Given with -c it comes after the machine's own settings, whose hooks would work on the machine.
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
    private_apt update || true # one source of several may be out of reach
    private_apt autoclean
    private_apt --no-install-recommends --download-only install "${@:2}"
}

private_apt() {
    apt-get -q -y -c "$apt/apt.conf" "$@"
}
