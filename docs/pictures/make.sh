#!/usr/bin/env bash
# Takes the picture of the documentation from the program itself: first-click.png, beside this script. It shows a file, the bank
# that it is tied to, and the bytes that a click on a row has sent. Needs what ./test.sh installs.
set -euo pipefail
here=$(realpath "$(dirname "${BASH_SOURCE[0]}")")
root=$(realpath "$here/../..")
cd "$root"
# shellcheck source=tests/system/gui-lib.sh
. tests/system/gui-lib.sh
screen_width=1280
screen_height=800

build dev velluto jack-instrument
set_stage pictures "$root/build"
start_jack
start_instrument build/dev/tests/system/jack-instrument PA80
seed data "$stage/home"
start_in_english "$root/build/dev/velluto"
open_file samples/Full-64.pcg
find_fifth_row
press_user 1
choose_last_output PA80:midi_in

# Every window comes up in the same corner. A grip on its title takes it elsewhere.
grip_x=$((row_x + 200)) grip_y=$((row_y - 90))
changing press alt+v
changing press m # the monitor
changing drag "$grip_x" "$grip_y" $((grip_x + 740)) $((grip_y + 130))
changing press alt+v
changing press g # the bank
changing drag "$grip_x" "$grip_y" $((grip_x + 40)) $((grip_y + 310))
changing click $((row_x + 40)) $((row_y + 310))
wait_until "three messages" heard_lines 3
changing click $((grip_x + 740)) $((grip_y + 130))

import -window root -strip "$here/first-click.png"
say "$here/first-click.png"
