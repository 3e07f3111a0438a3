# What ./run and ./test share; to be sourced from the root of the sources.

# Installs the packages of tools/packages.txt that are missing, saying which.
install_packages() {
    local wanted missing as_root=
    wanted=$(grep -v '^#' tools/packages.txt)
    if ! command -v dpkg-query >/dev/null; then
        echo "No Debian packages here; needed are the counterparts of:" $wanted
        return
    fi
    # shellcheck disable=SC2086 # one word per package
    missing=$(comm -23 <(sort <<<"$wanted") \
        <(dpkg-query -W -f '${Package} ${db:Status-Status}\n' $wanted 2>/dev/null | sed -n 's/ installed$//p' | sort))
    [ -n "$missing" ] || return 0
    echo "Installing:" $missing
    if [ "$(id -u)" != 0 ]; then
        command -v sudo >/dev/null || { echo "sudo is missing; install these packages as root." >&2; return 1; }
        as_root=sudo
    fi
    $as_root apt-get -q update >/dev/null || echo "The lists of packages could not be renewed; trying with the old ones."
    # shellcheck disable=SC2086
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -y --no-install-recommends install $missing >/dev/null
}

# build PRESET [target…]: configures on the first call and builds what is out of date.
build() {
    local preset=$1
    shift
    [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset" >/dev/null
    cmake --build "build/$preset" --parallel "$(nproc)" ${1:+--target "$@"}
}
