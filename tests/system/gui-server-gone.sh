#!/usr/bin/env bash
# The MIDI server is killed while a key is held, and comes back: the program answers all the while, says what has gone, and
# plays again on the device once it has been chosen anew.
#
#     gui-server-gone.sh PROGRAM INSTRUMENT PICTURES
set -euo pipefail
program=$(realpath "$1")
instrument=$(realpath "$2")
pictures=$(realpath "$3")
here=$(realpath "$(dirname "${BASH_SOURCE[0]}")")
# shellcheck source=tests/system/gui-lib.sh
. "$here/gui-lib.sh"

last_is() {
    [ "$(heard | tail -n 1)" = "$1" ]
}

is_listed() {
    jack_lsp 2>/dev/null | grep -qxF "$1"
}

# Plays on until the program has noticed: a server that is killed tells nobody. No key while the words may be coming up, which
# it would take away again.
has_told() {
    for _ in 1 2 3 4 5 6 7 8 9 10; do
        sleep 0.1
        ! has_focus "Velluto v 1.1" || return 0
    done
    xdotool key space
    return 1
}

# A server that has only just begun may lose a message.
plays_again() {
    xdotool key space
    sleep 0.3
    last_is "80 24 40"
}

set_stage server-gone "$pictures"
start_jack
server_pid=${started_pids[-1]}
start_instrument "$instrument" Instrument
instrument_pid=${started_pids[-1]}
seed "$here/../../data" "$stage/home"
start_in_english "$program"
choose_last_output Instrument:midi_in
changing press alt+v
changing press k
changing press Home # the first key of the piano
xdotool keydown space
wait_until "the note" last_is "90 24 40"

kill -KILL "$server_pid"
wait "$server_pid" 2>/dev/null || true
xdotool keyup space
wait_until "the words about the device" has_told
changing press Return
settle

# The instrument of the dead server waits for its periods at the place in memory where one of the same name would wait for the new
# server's, and would take them away from it.
end_processes "$instrument_pid"
rm "$stage/instrument"
start_jack
start_instrument "$instrument" Instrument
changing press alt+p # off, with one more box, and on again
changing press Down
changing press Right
changing press Up
press Return
await_window "Velluto v 1.1"
changing press Return
choose_last_output Instrument:midi_in
wait_until "the note on the server that came back" plays_again # the piano still has the keyboard

changing press alt+f
press x
wait_until "the end of the program" program_has_gone
status=0
wait "$program_pid" || status=$?
[ "$status" -eq 0 ] || fail "the program ended with $status"
say "told, chosen anew, heard again"
