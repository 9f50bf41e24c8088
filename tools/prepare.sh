# Shared by ./run, ./test, ./package and the continuous integration; they source it from the top folder.

as_root() {
    if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi
}

# install_named PACKAGE...: installs those that this machine lacks.
install_named() {
    local package missing=()
    for package in "$@"; do
        dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
    done
    if [ ${#missing[@]} -gt 0 ]; then
        echo "Installing: ${missing[*]}"
        as_root apt-get update -qq
        as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
    fi
}

# install_packages PURPOSE...: what packages.txt names for these purposes.
install_packages() {
    local purpose
    for purpose in "$@"; do
        awk -v purpose="$purpose" '$1 == purpose {found = 1} END {exit !found}' packages.txt ||
            { echo "packages.txt names nothing for '$purpose'." >&2; return 1; }
    done
    # shellcheck disable=SC2046 # one word a package
    install_named $(awk -v purposes=" $* " 'index(purposes, " " $1 " ") {print $2}' packages.txt)
}

# build PRESET [CMAKE-OPTION...] [TARGET...]: configures a preset of CMakePresets.json and builds the targets, or all.
build() {
    local preset=$1 options=()
    shift
    while [[ ${1:-} == -D* ]]; do options+=("$1"); shift; done
    cmake --preset "$preset" "${options[@]}"
    cmake --build --preset "$preset" ${1:+--target "$@"}
}
