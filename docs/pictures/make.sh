#!/usr/bin/env bash
# Takes the pictures of the documentation from the program itself, beside this script. first-click.png shows a file, the bank that
# it is tied to, and the bytes that a click on a row has sent; player.png the player with a compilation and a marked section.
# Needs what ./test.sh installs.
set -euo pipefail
own_script=$(realpath "${BASH_SOURCE[0]}")
here=$(dirname "$own_script")
root=$(realpath "$here/../..")
cd "$root"
# shellcheck source=tests/system/gui-lib.sh
. tests/system/gui-lib.sh
# shellcheck source=tests/system/player-lib.sh
. tests/system/player-lib.sh
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
changing drag "$grip_x" "$grip_y" $((grip_x + 40)) $((grip_y + 340))
changing click $((row_x + 40)) $((row_y + 340))
wait_until "three messages" heard_lines 3
changing click $((grip_x + 740)) $((grip_y + 130))

import -window root -strip "$here/first-click.png"
say "$here/first-click.png"

long=
for ((beat = 0; beat < 240; beat++)); do
    long+='00 90 30 64 60 80 30 40 '
done
for title in 'Autumn waltz' 'Blue bossa in A' 'Mazurka no. 3' 'Sunday polka' 'Tango of the lamps'; do
    song "$stage/home/$title.mid" 07A120 "$long"
    long+='00 90 30 64 60 80 30 40 '
done
changing press alt+i
find_player
changing file_panel
changing new_compilation
changing xdotool type --delay 2 'Saturday night'
changing folder_row 0
changing folder_row 3 shift_click_here
changing add_selected
changing compilation_row 1
bar=$((player_top + 142))
changing drag 27 "$bar" 122 "$bar"  # the start marker
changing drag 566 "$bar" 460 "$bar" # the stop marker
changing repeat
transport 2
sleep 5 # for a time to look at
import -window root -crop "928x522+0+$player_top" +repage -strip "$here/player.png"
say "$here/player.png"
