#!/usr/bin/env bash
# A Style file tied to the banks User 1 and User 3 with real keys and a real mouse. A row of the bank's window and rows of the
# overview of the three banks select on the instrument, each by the three messages of its own bank and nothing else.
#
#     gui-style-banks.sh PROGRAM INSTRUMENT PICTURES
set -euo pipefail
# shellcheck source=tests/system/gui-lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/gui-lib.sh"
screen_width=1280 # room for the overview

begin style-banks "$@"
start_in_english "$program"
open_file samples/Grouped-16.sty
find_fifth_row
press_user 1 3
choose_last_output Instrument:midi_in

changing press alt+v
changing press 2 # "2 User 1:"
click "$row_x" "$row_y"
wait_until "three messages" heard_lines 3

changing press alt+v
changing press 5 # "5 User All"
changing press Tab
changing press Tab # to the third list
changing press Home
wait_until "the first row of the third list" heard_lines 6
cp "$stage/now.ppm" "$stage/first.ppm"
changing press Down
wait_until "the second row of the third list" heard_lines 9
read -r left top width height < <(changed_box "$stage/first.ppm" "$stage/now.ppm")
[ "$((width > 100 && height > 20))" -eq 1 ] || fail "no rows seen at $left $top $width $height"
click $((left + width / 2)) $((top + height * 9 / 4)) # the fifth
wait_until "the fifth row of the third list" heard_lines 12

leave_program

# Channel 2 carries the role of the banks; bank 0, 17 for User 1 and 19 for User 3.
want=$'B1 00 00\nB1 20 11\nC1 04
B1 00 00\nB1 20 13\nC1 00
B1 00 00\nB1 20 13\nC1 01
B1 00 00\nB1 20 13\nC1 04'
[ "$(heard)" = "$want" ] || fail "the instrument heard: $(heard)"
say "The instrument heard the Styles of User 1 and User 3"
