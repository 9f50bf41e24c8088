# Sourced by the commands beside it, from the top folder: how an installer is made of a folder.

# The order in which licences.txt is shown is the file's own; lines that belong together are joined, as the page breaks
# them by its own width.
licences_as_shown() {
    awk '
        {indent = match($0, /[^ ]/)}
        /^$/ || indent != last || sentence {if (NR > 1) printf "\r\n"; printf "%s", $0}
        !(/^$/ || indent != last || sentence) {sub(/^ +/, ""); printf " %s", $0}
        {last = indent; sentence = /\.$/}
        END {printf "\r\n"}' packaging/windows/licences/README.txt
}

# As paths below the folder. The settings and the stand-in for the suite's shell are left to the installer itself.
installed_files() { (cd "$1" && find . -type f ! -path ./product.ini ! -path ./MevoV51Shell.exe -printf '%P\n' | LC_ALL=C sort); }

# Lists the files of a folder as the installer's statements: one to unpack, one to delete, and the programs to wait for.
list_files() {
    local folder=$1 lists=$2 file
    installed_files "$folder" | while read -r file; do
        echo "SetOutPath \"\$INSTDIR\\$(dirname "$file" | tr / '\\')\"" >&3
        echo "File \"$folder/$file\"" >&3
        echo "Delete \"\$INSTDIR\\${file//\//\\}\"" >&4
        [[ $file != *.exe ]] || echo "!insertmacro Wait_For \"$file\"" >&5
    done 3> "$lists/install.nsh" 4> "$lists/delete.nsh" 5> "$lists/wait.nsh"
    (cd "$folder" && find . -mindepth 1 -depth -type d -printf '%P\n') | sed 's,/,\\,g; s,.*,RMDir "$INSTDIR\\&",' > "$lists/folders.nsh"
}

# The pictures beside the pages' text, of the program's own icon.
draw_pictures() {
    local icon='packaging/windows/mevo.ico[5]'
    convert -size 164x314 "xc:#e8eef4" \( "$icon" -resize 104x104 \) -gravity north -geometry +0+48 -composite -alpha off "BMP3:$1/side.bmp"
    convert -size 150x57 xc:white \( "$icon" -resize 44x44 \) -gravity east -geometry +8+0 -composite -alpha off "BMP3:$1/head.bmp"
    cat > "$1/images.nsh" <<PICTURES
!define MUI_WELCOMEFINISHPAGE_BITMAP "$1/side.bmp"
!define MUI_HEADERIMAGE
!define MUI_HEADERIMAGE_RIGHT
!define MUI_HEADERIMAGE_BITMAP "$1/head.bmp"
PICTURES
}

# make_setup FOLDER VERSION SETUP_EXE
make_setup() {
    local folder lists setup
    folder=$(realpath "$1") setup=$(realpath "$3") lists=$(mktemp -d)
    licences_as_shown > "$lists/licences.txt"
    list_files "$folder" "$lists"
    draw_pictures "$lists"
    local standin=()
    [ ! -e "$folder/MevoV51Shell.exe" ] || standin=("-DSTANDIN_BYTES=$(stat -c %s "$folder/MevoV51Shell.exe")")
    makensis -V2 -WX "-XTarget amd64-unicode" "-DSOURCES=$PWD" "-DFOLDER=$folder" "-DLISTS=$lists" "-DVERSION=$2" \
        "-DKILOBYTES=$(du -sk "$folder" | cut -f1)" "-DSETUP=$setup" "${standin[@]}" \
        packaging/windows/installer.nsi
    rm -r "$lists"
}
