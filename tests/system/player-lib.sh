# Hands for the player's window on a virtual display, and MIDI files for it to play. Sourced, after gui-lib.sh.
# shellcheck shell=bash disable=SC2154

# song PATH TEMPO EVENTS: a MIDI file of one track with 96 parts to the beat. TEMPO is six digits, the microseconds of a beat;
# EVENTS are bytes, times and all. Everything in hexadecimal.
song() {
    local track length
    track="00 FF 51 03 ${2:0:2} ${2:2:2} ${2:4:2} $3 00 FF 2F 00"
    track=${track// /}
    printf -v length %08x $((${#track} / 2))
    # shellcheck disable=SC2001 # no pattern of the shell can say "each two"
    printf '%b' "$(sed 's/../\\x&/g' <<<"4D546864000000060000000100604D54726B$length$track")" >"$1"
}

# Where the player stands: below the first line in the colour of an active title, at the left edge of the frame.
find_player() {
    take "$stage/now.ppm"
    player_top=$(look_at "$stage/now.ppm" -crop "1x500+1+0" +repage txt: |
        awk -F '[,:]' '/#8E2446/ && !seen++ { print $2 }')
    [ -n "$player_top" ] || fail "no player on the screen"
}

# at LEFT TOP COMMAND...: with the pointer on that place of the form, in its own twips.
at() {
    local border=4 title=24 twips=15
    xdotool mousemove $((border + $1 / twips)) $((player_top + title + $2 / twips))
    shift 2
    "$@"
}

double_click_here() {
    xdotool mousedown 1 mouseup 1 mousedown 1 mouseup 1
}

shift_click_here() {
    xdotool keydown Shift_L mousedown 1 mouseup 1 keyup Shift_L
}

# The controls, by the middle of each.
transport() { # 0 to 6
    at $((560 + $1 * 690)) 795 click_here
}
repeat() { at 5685 795 click_here; }
play_all() { at 6825 795 click_here; }
file_panel() { at 8400 795 click_here; }
new_compilation() { at 900 6975 click_here; }
add_selected() { at 4800 6495 click_here; }
compilation_row() { # ROW [WAY OF CLICKING]
    at 4500 $((3660 + $1 * 270)) "${2-click_here}"
}
folder_row() {
    at 10500 $((3670 + $1 * 270)) "${2-click_here}"
}
