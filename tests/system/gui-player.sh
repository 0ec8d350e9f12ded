#!/usr/bin/env bash
# The MIDI player with a real mouse: a file plays to an instrument that is patched to the player's port; pause, stop, back and
# forward leave no note sounding; a compilation plays from file to file; its window ends every note, and so does the
# end of the program.
#
#     gui-player.sh PROGRAM INSTRUMENT PICTURES
set -euo pipefail
# shellcheck source=tests/system/gui-lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/gui-lib.sh"
# shellcheck source=tests/system/player-lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/player-lib.sh"

is_sounding() {
    [ "$(still_sounding)" -gt 0 ]
}

is_silent() {
    [ "$(still_sounding)" -eq 0 ]
}

expect_no_more() {
    [ "$(heard | wc -l)" -eq "$known" ] || fail "the instrument was sent more after $1: $(heard | tail -n 3)"
}

# Silent, and staying so until the program sleeps.
await_silence() {
    wait_until "silence after $1" is_silent
    known=$(heard | wc -l)
    settle
    expect_no_more "$1"
}

# play_row ROW: by a double click in the folder. On a busy machine its two clicks may come too far apart to be one.
play_row() {
    wait_until "a note of row $1" double_click_sounds "$1"
}

double_click_sounds() {
    folder_row "$1" double_click_here
    settle
    local look
    for ((look = 0; look < 50; look++)); do
        ! is_sounding || return 0
        sleep 0.02
    done
    return 1
}

player_port_is_there() {
    jack_lsp | grep -qx 'Velluto:Velluto player'
}

# expect_since LINES MESSAGES: what the instrument has heard next after so many lines.
expect_since() {
    local lines
    lines=$(heard | sed -n "$(($1 + 1)),$(($1 + $(wc -l <<<"$2")))p")
    [ "$lines" = "$2" ] || fail "the instrument heard: $lines"
}

begin player "$@"

# Two short files of 50 ms to the beat, and one of ten minutes whose notes of a second leave no gap.
song "$stage/home/a.mid" 00C350 '00 C0 05 00 90 3C 64 60 90 3C 00 00 90 3E 64 60 90 3E 00'
song "$stage/home/b.mid" 00C350 '00 C1 07 00 91 40 50 60 81 40 40'
a=$'C0 05\n90 3C 64\n90 3C 00\n90 3E 64\n90 3E 00'
b=$'C1 07\n91 40 50\n81 40 40'
long=
for ((second = 0; second < 600; second++)); do
    long+='00 90 30 64 60 80 30 40 '
done
song "$stage/home/long.mid" 0F4240 "$long"

start_in_english "$program"
changing press alt+i
find_player
changing file_panel
changing folder_row 0
wait_until "the player's port" player_port_is_there
jack_connect 'Velluto:Velluto player' Instrument:midi_in
wait_until "the patch" is_connected Instrument:midi_in
transport 2
wait_until "the first file" heard_lines 5
expect_since 0 "$a"

play_row 2
transport 3
await_silence "a pause"
transport 3
wait_until "a note after the pause" is_sounding
transport 5
transport 5
wait_until "a note after going forward" is_sounding
transport 4
wait_until "a note after going back" is_sounding
transport 6
await_silence "a stop"

changing new_compilation
changing xdotool type --delay 2 Evening
changing folder_row 0
changing folder_row 2 shift_click_here
changing add_selected
changing compilation_row 0
changing play_all
expect_no_more "a stop"
transport 2
wait_until "all files" heard_lines $((known + 9))
import -window root "$pictures/player.png"
expect_since "$known" "$a"$'\n'"$b"$'\n90 30 64'

wait_until "a note before the window goes" is_sounding
changing press ctrl+w
await_silence "the end of the window"

changing press alt+i
find_player
play_row 2

leave_program
wait_until "silence after the end of the program" is_silent
say "The instrument heard the files, and nothing sounds on"
