#!/usr/bin/env bash
# A new user's first minutes, with real keys and a real mouse: choose the language, open a file, tie it to bank User 1, switch the
# instrument on, choose it in the menu, open the bank, click its fifth row. The instrument hears three messages and nothing else.
#
#     gui-first-click.sh PROGRAM INSTRUMENT PICTURES
set -euo pipefail
# shellcheck source=tests/system/gui-lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/gui-lib.sh"

begin_without_instrument first-click "$@"
choose_english "$program"
changing press Return
await_window "Velluto v 1.1"
press Return # at the words that there is no input
await_window "Velluto v 1.1 - Velluto"
open_file samples/Full-64.pcg
find_fifth_row
press_user 1
start_instrument "$2" Instrument
choose_last_output Instrument:midi_in

changing press alt+v
changing press g # "G User 1:"
click "$row_x" "$row_y"
wait_until "three messages" heard_lines 3

leave_program

want=$'B0 00 79\nB0 20 40\nC0 04'
[ "$(heard)" = "$want" ] || fail "the instrument heard: $(heard)"
[ "$(stat -c %s "$stage/home/Velluto.ini")" -eq 40000 ] || fail "the settings are not 80 records of 500 bytes"
say "The instrument heard B0 00 79, B0 20 40, C0 04"
