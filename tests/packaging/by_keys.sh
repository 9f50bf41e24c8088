# A school set up, and its first pupil registered, by keys alone, on the screen that DISPLAY names and whatever system shows
# its windows there. Sourced. Each page that is passed is left as a picture in the folder PICTURES.

turned=0
# turn_to PICTURE KEY...: keys, and a picture of what they lead to.
turn_to() {
    local picture=$1
    shift
    press "$@"
    sleep 2
    turned=$((turned + 1))
    import -window root "$pictures/by-keys-$turned-$picture.png"
}
# No window manager gives the keyboard to the window in front, so it is given it here.
press() {
    xdotool windowfocus "$(xdotool search --onlyvisible --name . | tail -1)"
    xdotool key --delay 150 "$@"
}
typed() { xdotool type --delay 40 "$1"; }
# into KEY TEXT: the field of that letter.
into() { press "$1"; typed "$2"; }

# window NAME: until one of that name is there.
window() { timeout 60 xdotool search --sync --onlyvisible --name "$1" > /dev/null && sleep 2; }

# set_up_by_keys PICTURES FOLDER TEMPLATE: in the wizard. It ends with the program's start.
set_up_by_keys() {
    pictures=$1
    window '^Set up'
    turn_to where alt+f
    into alt+o "$2"
    turn_to what alt+n
    press alt+e
    into alt+m "Hill School"
    into alt+c "1 Oak, 1 Ash, 1 Elm"
    into alt+p sesame
    into alt+g sesame
    into alt+l "$3"
    turn_to sheets alt+n
    turn_to check alt+n
    turn_to done alt+s
    press alt+f
}

# register_by_keys PICTURES: from the Main menu of the school that was set up, to the program's end.
register_by_keys() {
    pictures=$1
    window 'Hill School'
    turn_to register alt+n
    typed Newton
    press Return
    typed Isla
    press Return Down Down Down Down Tab Down Tab
    typed 2020
    press Tab Down
    turn_to save alt+s
    turn_to registered Return
    turn_to menu alt+m
    press alt+q
}

# tried_by_keys COMMAND: it sets a school up in the folder that it is given a number for, and registers; ends with 0 when all
# is there. A busy machine may swallow a key, so it is tried three times.
tried_by_keys() {
    local attempt
    for attempt in 1 2 3; do
        turned=0
        "$@" $attempt && return
        echo "By keys: attempt $attempt failed."
    done
    return 1
}
