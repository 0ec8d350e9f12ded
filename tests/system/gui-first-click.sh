#!/usr/bin/env bash
# A new user's first minutes, with real keys and a real mouse: choose the language, open a file, tie it to bank User 1, choose
# the MIDI device, open the bank, click its fifth row. The instrument hears three messages and nothing else.
#
#     gui-first-click.sh PROGRAM INSTRUMENT PICTURES
set -euo pipefail
program=$(realpath "$1")
instrument=$(realpath "$2")
pictures=$(realpath "$3")
here=$(realpath "$(dirname "${BASH_SOURCE[0]}")")
# shellcheck source=tests/system/gui-lib.sh
. "$here/gui-lib.sh"

set_stage first-click "$pictures"
start_jack
start_instrument "$instrument" Instrument
seed "$here/../../data" "$stage/home"
start_program "$program"

await_window "Velluto v 1.1"
changing press Down # from Italiano to English
press Return
await_window "Velluto v 1.1 - Velluto"

press ctrl+a
await_window "Velluto v 1.1- Open File"
xdotool type --delay 10 samples/Full-64.pcg
press Return
await_window "Velluto v 1.1 - Velluto"

# Where the fifth row is: what changes as the selection moves on from the fourth. Nothing is sent from a file's window.
changing press Home
for _ in 2 3 4; do
    changing press Down
done
cp "$stage/now.ppm" "$stage/fourth.ppm"
changing press Down
read -r left top width height < <(changed_box "$stage/fourth.ppm" "$stage/now.ppm")
[ "$((width > 100 && height > 20))" -eq 1 ] || fail "no rows seen at $left $top $width $height"
row_x=$((left + width / 2)) row_y=$((top + height * 3 / 4))

# Where the button "User 1" is: the left one of the two between which the focus moves.
changing press Tab
cp "$stage/now.ppm" "$stage/user1.ppm"
changing press Tab
read -r left top width height < <(changed_box "$stage/user1.ppm" "$stage/now.ppm")
[ "$width" -gt 100 ] || fail "no buttons seen at $left $top $width $height"
changing click $((left + width / 5)) $((top + height / 2))

# The last output is the instrument: the built-in synthesizer and the machine's own ports come before it.
changing press alt+p
changing press Down
changing press Right
changing press Up # from the first round to the last
press Return
wait_until "the way to the instrument" is_connected Instrument:midi_in
settle

changing press alt+v
changing press g # "G User 1:"
click "$row_x" "$row_y"
wait_until "three messages" heard_lines 3

changing press alt+f
press x
wait_until "the end of the program" program_has_gone
status=0
wait "$program_pid" || status=$?
[ "$status" -eq 0 ] || fail "the program ended with $status"

want=$'B0 00 79\nB0 20 40\nC0 04'
[ "$(heard)" = "$want" ] || fail "the instrument heard: $(heard)"
[ "$(stat -c %s "$stage/home/Velluto.ini")" -eq 40000 ] || fail "the settings are not 80 records of 500 bytes"
say "The instrument heard B0 00 79, B0 20 40, C0 04"
