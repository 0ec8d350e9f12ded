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
three_songs "$stage/home"
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
expect_since 0 "$song_a"

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

compile_evening
expect_no_more "a stop"
transport 2
wait_until "all files" heard_lines $((known + 9))
import -window root "$pictures/player.png"
expect_since "$known" "$song_a"$'\n'"$song_b"$'\n90 30 64'

wait_until "a note before the window goes" is_sounding
changing press ctrl+w
await_silence "the end of the window"

changing press alt+i
find_player
play_row 2

leave_program
wait_until "silence after the end of the program" is_silent
say "The instrument heard the files, and nothing sounds on"
