# Sourced: an apt for the unit's processor. It has lists, a cache and a state of its own, so nothing
# changes on this machine; only its package sources, keys and apt settings are read.

# make_apt FOLDER: what the folder holds already is used again.
make_apt() {
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
Dir::State::lists "$apt/lists";
Dir::Cache "$apt";
Dir::Cache::archives "$apt/archives";
SETTINGS
}

# update_lists: one source of several may be out of reach.
update_lists() {
    apt-get -q -c "$apt/apt.conf" update || true
}

# download PACKAGE...: and all that they need, into the folder's archives.
download() {
    apt-get -q -y -c "$apt/apt.conf" --no-install-recommends --download-only install "$@"
}
