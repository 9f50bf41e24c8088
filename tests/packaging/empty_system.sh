# A Debian 12 that has nothing of ours. Sourced from the top folder, after tools/prepare.sh, by what tries things in it.
# Defines:
#   $work        where everything of the trial lies; the empty system and what apt downloads are kept there
#   $root        the system in use, a fresh copy that is removed at the end
#   cannot TEXT  ends with status 77: it can't be tried here
#   step, fail   say what is tried, and what didn't hold
#   inside COMMAND...  runs it in there as root

cannot() { echo "Not tried: $1"; exit 77; }
step() { printf '\n== %s\n' "$1"; }
fail() { echo "FAILED: $1" >&2; exit 1; }

[ "$(id -u)" = 0 ] || cannot "an empty system can only be made by root."
[ "$(. /etc/os-release; echo "$VERSION_CODENAME")" = bookworm ] || cannot "Debian 12 is made on Debian 12."
install_packages trial

work=$PWD/build/packaging
root=$work/system
downloads=$work/downloads
mkdir -p "$downloads"

started=()
clear_away() {
    local place
    for place in proc dev/shm; do
        if mountpoint -q "$root/$place"; then umount "$root/$place"; fi
    done
    rm -rf --one-file-system "$root"
}
cleanup() {
    local process
    keep_downloads
    for process in "${started[@]}"; do kill "$process" 2>/dev/null || true; done
    clear_away
}
keep_downloads() { cp -u "$root"/var/cache/apt/archives/*.deb "$downloads/" 2>/dev/null || true; }

inside() { chroot "$root" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 HOME=/root DEBIAN_FRONTEND=noninteractive "$@"; }

make_empty_system() {
    local empty=$work/empty-system mirror
    if [ ! -e "$empty/etc/debian_version" ]; then
        mirror=$(apt-get indextargets --format '$(SITE) $(CODENAME) $(COMPONENT)' 'Created-By: Packages' |
            awk '$2 == "bookworm" && $3 == "main" {print $1; exit}')
        rm -rf "$empty"
        debootstrap --variant=minbase bookworm "$empty" "${mirror:?no mirror of bookworm among the sources of apt}" \
            > "$work/debootstrap.log" || cannot "no empty system could be made, see $work/debootstrap.log"
    fi
    clear_away
    trap cleanup EXIT
    cp -a --reflink=auto "$empty" "$root"
    mount -t proc proc "$root/proc"
    mkdir -p "$root/dev/shm"
    mount -t tmpfs tmpfs "$root/dev/shm"
    echo 'APT::Keep-Downloaded-Packages "true";' > "$root/etc/apt/apt.conf.d/keep"
    cp "$downloads"/*.deb "$root/var/cache/apt/archives/" 2>/dev/null || true
}
