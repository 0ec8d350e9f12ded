#!/usr/bin/env bash
# An evening with the program, lived by a script that knows it as a screen reader does (reader.py): a display, a MIDI server,
# an instrument and a message bus for it.
#
#     evening.sh PROGRAM INSTRUMENT PICTURES DRIVER EVENING
#
# EVENING names one of the scripts evening_*.py.
set -euo pipefail
program=$(realpath "$1")
instrument=$(realpath "$2")
pictures=$(realpath "$3")
driver=$(realpath "$4")
here=$(realpath "$(dirname "${BASH_SOURCE[0]}")")
# shellcheck source=tests/system/gui-lib.sh
. "$here/gui-lib.sh"
screen_width=1280
screen_height=960

set_stage "evening-$5" "$pictures"
start_jack 8192 # so long a period is missed by nobody, however busy the machine
start_instrument "$instrument" Instrument
seed "$here/../../data" "$stage/home"
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
dbus-run-session -- /usr/bin/python3 -B "$here/evening_$5.py" "$program" "$driver" "$stage" "$pictures" 2>"$stage/bus.log" &
evening=$!
started_pids+=("$evening")
status=0
wait "$evening" || status=$?
if [ "$status" -ne 0 ]; then
    grep -v '^dbus-daemon\|^SpiRegistry' "$stage/bus.log" >&2 || true
    cat "$stage/program.log" >&2 || true
    DISPLAY= # the program has gone with the script, which took the picture
    fail "the evening of $5"
fi
