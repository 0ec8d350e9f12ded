#!/usr/bin/env bash
# The MIDI server hangs as the program starts, while it plays, and as it starts with a saved device: each time the window answers three
# seconds later, has said what it did not get, and has its device when the server goes on.
#
#     gui-server-hangs.sh PROGRAM INSTRUMENT PICTURES
set -euo pipefail
# shellcheck source=tests/system/gui-lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/gui-lib.sh"

look_into_menu() {
    changing press alt+f
    changing press Escape
    press Escape # the bar itself
    settle
}

begin server-hangs "$@"
kill -STOP "$server_pid"
choose_english "$program"
changing press Return
await_window "Velluto v 1.1" # no input
press Return
await_window "Velluto v 1.1 - Velluto"
look_into_menu # it answers while the server does not
kill -CONT "$server_pid"
choose_last_output Instrument:midi_in
open_piano
xdotool keydown space
wait_until "the note" last_is "90 24 40"
xdotool keyup space
wait_until "its end" last_is "80 24 40"

kill -STOP "$server_pid"
click_last_output # off
settle
click_last_output # and on again
await_window "Velluto v 1.1"
press Return
await_window "Velluto v 1.1 - Velluto"
look_into_menu
kill -CONT "$server_pid"
choose_last_output Instrument:midi_in
xdotool keydown space # the piano still has the keyboard
wait_until "the note on the server that goes on" last_is "90 24 40"
xdotool keyup space
wait_until "its end" last_is "80 24 40"

leave_program
kill -STOP "$server_pid"
start_program "$program"
await_window "Velluto v 1.1" # no input
press Return
await_window "Velluto v 1.1 - Velluto"
kill -CONT "$server_pid"
click_last_output # the saved one has its mark, and is closed
settle
choose_last_output Instrument:midi_in

leave_program
say "the frame, the words, and the device when the server goes on"
