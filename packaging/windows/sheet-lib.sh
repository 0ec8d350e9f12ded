# shellcheck shell=bash disable=SC2034,SC2154
# A sheet of all windows of velluto.exe, in one theme and one language. Sourced after program-lib.sh.

# shot NAME: of the windows that lie on the frame's ground.
shot() {
    settle
    import -window root -crop "1280x896+0+41" +repage "$sheet/$1.png"
    mogrify -trim +repage "$sheet/$1.png"
}

# shot_and_close NAME COMMAND...: of the window that the command opens.
shot_and_close() {
    local name=$1
    shift
    changing "$@"
    shot "$name"
    changing press ctrl+w
}

# box_shot NAME: of the dialog that has the keyboard.
box_shot() {
    settle
    import -window "$(xdotool getactivewindow)" "$sheet/$1.png"
}

# tied_shot NAME FILE: of the file's window, after its first button was pressed: it is tied to User 1.
tied_shot() {
    changing hand_over "$2"
    changing press Tab
    changing press space
    shot "$1"
    changing press ctrl+w
}

# entry LETTER KEY...: in the menu of the letter, by these keys.
entry() {
    local key
    press "alt+$1"
    for key in "${@:2}"; do
        settle
        press "$key"
    done
}

# sheet_of NAME ENGLISH KEYBOARD: in English or not, with the letter of the keyboard's entry in the View menu; as after a first start.
sheet_of() {
    local name=$1 english=$2 keyboard=$3
    sheet=$stage/$name
    mkdir "$sheet"
    rm "$home/Velluto.ini"
    cp data/samples/* "$home/samples"

    start_in_wine
    await_window "Velluto v 1.1"
    ! $english || changing press Down
    box_shot 01-language
    press Return
    await_window "Velluto v 1.1 - Velluto"
    xdotool mousemove $((screen_width - 1)) $((screen_height / 2))

    changing hand_over samples/Full-64.pcg
    shot 02-program-file
    changing press Tab
    changing press space # User 1
    changing press shift+Tab
    changing press ctrl+f
    changing xdotool type --delay 2 ho
    shot 03-find
    changing press Escape
    changing press Home
    changing press Delete
    press ctrl+w
    wait_until "the question" has_focus "File Program - Full-64.pcg (1)"
    box_shot 04-question
    changing press alt+n
    come_back
    tied_shot 05-style-file samples/Grouped-16.sty
    tied_shot 06-performance-file samples/Full-8.prf

    changing press alt+v
    import -window root -crop 420x720+0+0 +repage "$sheet/07-view-menu.png"
    changing press Escape
    shot_and_close 08-bank entry v a
    shot_and_close 09-user-bank entry v g
    shot_and_close 10-styles entry v 0
    shot_and_close 11-all-styles entry v 5
    shot_and_close 12-all-performances entry v Up Up Up Return
    shot_and_close 13-messages entry v m
    shot_and_close 14-keyboard entry v "$keyboard"
    shot_and_close 15-setup entry p Up Up Return
    shot_and_close 16-notebook entry f Left Left Return
    shot_and_close 17-guide press F1
    shot_and_close 18-about entry f Left Up Return
    press alt+i
    settle
    shot 19-player
    press ctrl+q
    await_end
    paste_sheet "$pictures/$name.png"
}

# paste_sheet PNG: all pictures of the sheet in three columns, each in the one that is shortest by then.
paste_sheet() {
    local picture column shortest gap=8 height=(0 0 0)
    for picture in "$sheet"/*.png; do
        shortest=0
        for column in 1 2; do
            [ "${height[column]}" -ge "${height[shortest]}" ] || shortest=$column
        done
        height[shortest]=$((height[shortest] + gap + $(identify -format %h "$picture")))
        mkdir -p "$sheet/$shortest"
        cp "$picture" "$sheet/$shortest"
    done
    for column in 0 1 2; do
        convert "$sheet/$column"/*.png -bordercolor gray50 -border "$((gap / 2))" -background gray50 -append "$sheet/column$column.png"
    done
    convert "$sheet"/column?.png -background gray50 +append +dither -colors 64 -strip "PNG8:$1"
}
