# Hands for the player's window on a virtual display, and MIDI files for it to play. Sourced, after gui-lib.sh.
# shellcheck shell=bash disable=SC2034,SC2154

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

# three_songs FOLDER: two short ones of 50 ms to the beat, a.mid and b.mid, and long.mid of ten minutes, whose notes of a second leave no
# gap. Sets song_a and song_b to what is heard of these, a message a line.
three_songs() {
    local second long=
    song "$1/a.mid" 00C350 '00 C0 05 00 90 3C 64 60 90 3C 00 00 90 3E 64 60 90 3E 00'
    song "$1/b.mid" 00C350 '00 C1 07 00 91 40 50 60 81 40 40'
    song_a=$'C0 05\n90 3C 64\n90 3C 00\n90 3E 64\n90 3E 00'
    song_b=$'C1 07\n91 40 50\n81 40 40'
    for ((second = 0; second < 600; second++)); do
        long+='00 90 30 64 60 80 30 40 '
    done
    song "$1/long.mid" 0F4240 "$long"
}

is_sounding() {
    [ "$(still_sounding)" -gt 0 ]
}

is_silent() {
    [ "$(still_sounding)" -eq 0 ]
}

# Whether a window in the frame has the colour of an active title at the left edge, in the light theme; where, is in $stage/title.
title_is_there() {
    take "$stage/now.ppm"
    look_at "$stage/now.ppm" -crop 1x500+1+0 +repage txt: | grep '#8E2446' >"$stage/title"
}

# Where the player stands: below the first line of its title.
find_player() {
    title_is_there || fail "no player on the screen"
    player_top=$(sed -n '1s/^[^,]*,\([0-9]*\):.*/\1/p' "$stage/title")
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

# The first three files of the folder as the compilation Evening, and all of them to be played.
compile_evening() {
    changing new_compilation
    changing xdotool type --delay 2 Evening
    changing folder_row 0
    changing folder_row 2 shift_click_here
    changing add_selected
    changing compilation_row 0
    changing play_all
}
