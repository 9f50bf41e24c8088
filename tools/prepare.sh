# Shared by ./run, ./test and the continuous integration; they source it from the top folder.

as_root() {
    if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi
}

# install_packages [LIST]: installs what packages.txt, or another such list, names and this machine lacks.
install_packages() {
    local wanted missing=()
    wanted=$(sed 's/#.*//' "${1:-packages.txt}")
    for package in $wanted; do
        dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
    done
    if [ ${#missing[@]} -gt 0 ]; then
        echo "Installing: ${missing[*]}"
        as_root apt-get update -qq
        as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
    fi
}

# build PRESET [TARGET...]: configures a preset of CMakePresets.json and builds the targets, or all.
build() {
    cmake --preset "$1"
    cmake --build --preset "$1" ${2:+--target "${@:2}"}
}
