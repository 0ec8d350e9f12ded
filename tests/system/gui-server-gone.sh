#!/usr/bin/env bash
# The MIDI server is killed while a key is held, and comes back: the program answers all the while, says what has gone, and
# plays again on the device once it has been chosen anew.
#
#     gui-server-gone.sh PROGRAM INSTRUMENT PICTURES
set -euo pipefail
# shellcheck source=tests/system/gui-lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/gui-lib.sh"

# Plays on until the program has noticed: a server that is killed tells nobody.
has_told() {
    settle
    ! has_focus "Velluto v 1.1" || return 0
    xdotool key space
    return 1
}

begin server-gone "$@"
start_in_english "$program"
choose_last_output Instrument:midi_in
open_piano
xdotool keydown space
wait_until "the note" last_is "90 24 40"

kill -KILL "$server_pid"
wait "$server_pid" 2>/dev/null || true
xdotool keyup space
wait_until "the words about the device" has_told
changing press Return

# The instrument of the dead server waits for its periods at the place in memory where one of the same name would wait for the new
# server's, and would take them away from it.
end_processes "$instrument_pid"
start_jack
start_instrument "$2" Instrument
click_last_output # off, with one more box, and on again
await_window "Velluto v 1.1"
changing press Return
choose_last_output Instrument:midi_in
xdotool key space # the piano still has the keyboard
wait_until "the note on the server that came back" last_is "80 24 40"

leave_program
say "told, chosen anew, heard again"
