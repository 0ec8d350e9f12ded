#!/usr/bin/env bash
# The on-screen keyboard played with a real mouse, and what the instrument hears of it: presses, a press released elsewhere,
# the pointer passing over the keys, and the window closed while a key is held.
#
#     gui-keyboard.sh PROGRAM INSTRUMENT PICTURES
set -euo pipefail
# shellcheck source=tests/system/gui-lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/gui-lib.sh"
# shellcheck source=tests/system/keyboard-lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/keyboard-lib.sh"
screen_width=1400 # room for the window and some around it

# The pointer onto the empty ground below the window.
away() {
    point $((piano_width / 2)) $((3 * piano_height))
}

begin keyboard "$@"
start_in_english "$program"
choose_last_output Instrument:midi_in
changing press alt+v
changing press k
expect "the opening" "${opening[@]}"
find_piano

over_white 0
xdotool mousedown 1
expect "a press" "90 24 40"
xdotool mouseup 1
expect "its release" "80 24 40"
over_white 14
click_here
expect "a click on a C two octaves up" "90 3C 40" "80 3C 40"
over_white 35
click_here 3
expect "a click with the right button on the last key" "90 60 40" "80 60 40"

over_white 7
xdotool mousedown 1
expect "a press that is released elsewhere" "90 30 40"
over_white 20
xdotool mouseup 1
expect "a release on another key" "80 30 40"
over_white 7
xdotool mousedown 1
expect "a press that is released outside" "90 30 40"
away
xdotool mouseup 1
expect "a release outside the window" "80 30 40"

# leave_menu_for_next KEY...: out of one menu by Escape, which leaves the bar active, and into the next by its letter.
leave_menu_for_next() {
    changing press alt+f
    changing press Escape
    changing press alt+p
    press "$@"
    settle
}
for keys in "Up Return" "Escape Escape" "Escape Alt_L"; do # the status bar goes; out again, in two ways
    # shellcheck disable=SC2086 # they are several
    leave_menu_for_next $keys
    changing press Home
    xdotool key space
    expect "a key after $keys in a menu" "90 24 40" "80 24 40"
done

changing press Tab Tab Tab space # Click Key off
for white in 0 1 2 3 4 5 6 7 8 9; do
    over_white "$white"
done
away
expect "a sweep over ten white keys" "90 24 40" "80 24 40" "90 26 40" "80 26 40" "90 28 40" "80 28 40" "90 29 40" "80 29 40" \
    "90 2B 40" "80 2B 40" "90 2D 40" "80 2D 40" "90 2F 40" "80 2F 40" "90 30 40" "80 30 40" "90 32 40" "80 32 40" "90 34 40" "80 34 40"
# Along the upper edge in one leap from C to A: no key on the way is left out.
point 2 5
point $((11 * piano_width / 72)) 5
away
expect "a leap over ten keys" "90 24 40" "80 24 40" "90 25 40" "80 25 40" "90 26 40" "80 26 40" "90 27 40" "80 27 40" \
    "90 28 40" "80 28 40" "90 29 40" "80 29 40" "90 2A 40" "80 2A 40" "90 2B 40" "80 2B 40" "90 2C 40" "80 2C 40" "90 2D 40" "80 2D 40"

changing press space # Click Key on
over_white 3
xdotool mousedown 1
expect "a press that the window does not outlive" "90 29 40"
changing xdotool key ctrl+w # not press, which would let go of the mouse button first
expect "the closing" "B0 7B 00"
xdotool mouseup 1
[ "$(still_sounding)" -eq 0 ] || fail "notes ring on after the closing: $(heard)"

leave_program
[ "$(still_sounding)" -eq 0 ] || fail "notes ring on: $(heard)"
say "The instrument heard presses, two sweeps over ten keys and the end of every note"
