# Sourced by the commands beside it, from the top folder: what a program for Windows is linked with, by version and digest.

WINDOWS_LIBRARIES=${MEVO_WINDOWS_LIBRARIES:-../shared/windows/mingw-libraries.tar.xz}
WINDOWS_LIBRARIES_DIGEST=36c4006f83e2ab0200a3937ec8d39e1f26af3036fe2d674baf575c43eaaa27b5
LIBRARIES_FOLDER=build-windows/libraries

MDBTOOLS=mdbtools-1.0.0
MDBTOOLS_DIGEST=316000e477e8db780698a28ad8540558d3fc341aa130b031ae8007eea480c9f1
# Debian's source package. Its own servers don't give it everywhere; the digest says that it is the same file.
MDBTOOLS_PLACES=(
    http://deb.debian.org/debian/pool/main/m/mdbtools/mdbtools_1.0.0+dfsg.orig.tar.xz
    https://snapshot.debian.org/archive/debian/20230601T000000Z/pool/main/m/mdbtools/mdbtools_1.0.0%2Bdfsg.orig.tar.xz
    http://archive.ubuntu.com/ubuntu/pool/universe/m/mdbtools/mdbtools_1.0.0+dfsg.orig.tar.xz
)
QUAZIP=quazip-1.4
QUAZIP_DIGEST=79633fd3a18e2d11a7d5c40c4c79c1786ba0c74b59ad752e8429746fe1781dd6
QUAZIP_PLACES=(
    http://deb.debian.org/debian/pool/main/libq/libquazip1-qt6/libquazip1-qt6_1.4.orig.tar.gz
    https://snapshot.debian.org/archive/debian/20230601T000000Z/pool/main/libq/libquazip1-qt6/libquazip1-qt6_1.4.orig.tar.gz
    http://archive.ubuntu.com/ubuntu/pool/universe/libq/libquazip1-qt6/libquazip1-qt6_1.4.orig.tar.gz
)

# What packaging/windows/build_libraries makes its own of.
SQLITE=sqlite3-3.40.1
SQLITE_DIGEST=aaa776260ab4dc976db34aa7891819484c8676b5b2783123ebc6301e2ca5d655
SQLITE_PLACES=(
    http://deb.debian.org/debian/pool/main/s/sqlite3/sqlite3_3.40.1.orig.tar.xz
    https://snapshot.debian.org/archive/debian/20230601T000000Z/pool/main/s/sqlite3/sqlite3_3.40.1.orig.tar.xz
)
QT=qtbase-6.4.2
QT_DIGEST=4f14b89a9463a540fd84a6718b8519a2297119b454ef547721015a9e9019ae9e
QT_PLACES=(
    http://deb.debian.org/debian/pool/main/q/qt6-base/qt6-base_6.4.2+dfsg.orig.tar.xz
    https://snapshot.debian.org/archive/debian/20230601T000000Z/pool/main/q/qt6-base/qt6-base_6.4.2%2Bdfsg.orig.tar.xz
)
QTSVG_SOURCES=${MEVO_QTSVG_SOURCES:-../shared/windows/qtsvg-everywhere-src-6.4.2.tar.xz}
QTSVG_DIGEST=f1da2547d9314a0faf78baea8e851b9020b1745e5b9642ff134044fd1ade6028

# has_digest FILE DIGEST
has_digest() {
    echo "$2  $1" | sha256sum --check --status
}

# fetch FILE DIGEST PLACE...: from the first place that gives it.
fetch() {
    local file=$1 digest=$2 place
    shift 2
    [ -e "$file" ] && has_digest "$file" "$digest" && return
    mkdir -p "$(dirname "$file")"
    for place in "$@"; do
        curl --fail --silent --location --connect-timeout 15 --output "$file" "$place" && has_digest "$file" "$digest" && return
    done
    rm -f "$file"
    echo "None of these gives $(basename "$file") with the digest $digest: $*" >&2
    return 1
}

# unpacked ARCHIVE DIGEST FOLDER: once for each digest.
unpacked() {
    [ -e "$3/.$2" ] && return
    has_digest "$1" "$2" || { echo "$1 hasn't the digest $2." >&2; return 1; }
    rm -rf "$3"
    mkdir -p "$3"
    tar --extract --file "$1" --directory "$3" --strip-components 1
    touch "$3/.$2"
}

# All sets of libraries below LIBRARIES_FOLDER, where CMakePresets.json looks for them.
provide_libraries() {
    local mdbtools=$LIBRARIES_FOLDER/downloads/$MDBTOOLS.tar.xz quazip=$LIBRARIES_FOLDER/downloads/$QUAZIP.tar.gz
    if [ ! -e "$LIBRARIES_FOLDER/mingw/.built-here" ]; then
        [ -e "$WINDOWS_LIBRARIES" ] || {
            echo "No libraries for Windows at $WINDOWS_LIBRARIES. MEVO_WINDOWS_LIBRARIES names their archive;" \
                "packaging/windows/build_libraries makes them anew." >&2
            return 1
        }
        unpacked "$WINDOWS_LIBRARIES" "$WINDOWS_LIBRARIES_DIGEST" "$LIBRARIES_FOLDER/mingw"
    fi
    fetch "$mdbtools" "$MDBTOOLS_DIGEST" "${MDBTOOLS_PLACES[@]}"
    unpacked "$mdbtools" "$MDBTOOLS_DIGEST" "$LIBRARIES_FOLDER/mdbtools"
    fetch "$quazip" "$QUAZIP_DIGEST" "${QUAZIP_PLACES[@]}"
    unpacked "$quazip" "$QUAZIP_DIGEST" "$LIBRARIES_FOLDER/quazip"
}
