#!/usr/bin/env bash
# From the mouse button on a key of the on-screen keyboard to the Note On at the instrument: the real program on a virtual
# display, with a MIDI server of 64 frames at 48 kHz. Beside a plain JACK client that plays to the same instrument in turn, and beside vmpk, a program of the same kind and toolkit. Debian's vmpk
# knows no JACK, so its notes go out as datagrams: that way is shorter by the wait for the server's next period. Installs
# vmpk only for this. The window manager lets clicks through, as others do for a window that has the keyboard: by itself this one takes
# each of them first and hands it on, which adds a third of a millisecond to both programs.
#
#     bench/keyboard-latency.sh [PRESSES]
set -euo pipefail
own_script=$(realpath "${BASH_SOURCE[0]}")
root=$(realpath "$(dirname "$own_script")/..")
cd "$root"
# shellcheck source=tools/lib.sh
. tools/lib.sh
install_packages "${build_packages[@]}" "${test_packages[@]}" "${check_packages[@]}" vmpk python3-xlib
# shellcheck source=tests/system/gui-lib.sh
. tests/system/gui-lib.sh
presses=${1-500}
screen_width=1280
screen_height=800
frames=64
most_ms=1.47 # 1.1 periods

# shellcheck disable=SC2317 # wait_until reaches it
vmpk_is_up() {
    xdotool search --name "Virtual MIDI Piano" >/dev/null
}

# A configuration that names no click at all: without this one the window manager has some of its own.
let_clicks_through() {
    mkdir "$XDG_CONFIG_HOME/openbox"
    echo '<openbox_config xmlns="http://openbox.org/3.4/rc"><mouse/></openbox_config>' >"$XDG_CONFIG_HOME/openbox/rc.xml"
    openbox --reconfigure
    settle
}

build release velluto
build dev jack-instrument jack-keys
set_stage keyboard-latency "$root/build"
add_named_cookie
let_clicks_through
start_jack "$frames"
start_instrument build/dev/tests/system/jack-instrument PA80 --times
mkfifo "$stage/plain"
"${our_own[@]}" build/dev/tests/system/jack-keys Plain <>"$stage/plain" >"$stage/plain.log" 2>&1 &
started_pids+=("$!")
wait_until "a plain client" grep -qsx ready "$stage/plain.log"
jack_connect Plain:midi_out PA80:midi_in
export HOME=$stage/home QT_QPA_PLATFORM=xcb

# A point on a white key of each, below the black ones; so is the one a little to the right.
start_in_english "$root/build/release/velluto"
choose_last_output PA80:midi_in
changing press alt+v
changing press k
{
    read -r ours ours_95 ours_most ours_lost
    read -r plain plain_95 plain_most plain_lost
} < <(/usr/bin/python3 bench/key_latency.py 100 250 "$presses" heard "$stage/heard" "$stage/plain")
changing press alt+f
press x
wait_until "the end of the program" program_has_gone

mkdir -p "$XDG_CONFIG_HOME/vmpk.sourceforge.net"
cat >"$XDG_CONFIG_HOME/vmpk.sourceforge.net/VMPK.conf" <<'END'
[Connections]
InEnabled=false
OutPort=21928
OutputDriver=Network
ThruEnabled=false
[Network]
interface=lo
END
start_program vmpk
wait_until "vmpk" vmpk_is_up
settle
xdotool search --name "Virtual MIDI Piano" windowmove 0 0 >/dev/null
settle
theirs="" theirs_95="" theirs_most="" theirs_lost=""
read -r theirs theirs_95 theirs_most theirs_lost < <(/usr/bin/python3 bench/key_latency.py 100 170 "$presses" datagrams) ||
    complain "vmpk could not be measured here"

row="%-58s %6s ms %5s ms%s   (95%%: %s, most: %s, lost: %s)\n"
# A press that is lost is a fault of the program's, unless the plain client has lost as many: then JACK was kept from running.
over=$(awk -v a="$ours" -v m="$most_ms" -v lost="$ours_lost" -v plain="$plain_lost" 'BEGIN { print a <= m && lost <= plain ? "" : "  OVER" }')
# shellcheck disable=SC2059
{
    printf "$row" "Key press to the byte at the JACK instrument, median" "$ours" "$most_ms" "$over" "$ours_95" "$ours_most" "$ours_lost"
    printf "$row" "A plain JACK client's note, beside" "$plain" "-" "" "$plain_95" "$plain_most" "$plain_lost"
}
# shellcheck disable=SC2059
[ -z "$theirs" ] || printf "$row" "vmpk: key press to the datagram, median" "$theirs" "-" "" "$theirs_95" "$theirs_most" "$theirs_lost"
[ -z "$over" ]
