#!/usr/bin/env bash
# An evening with the program, lived by a script that knows it as a screen reader does (reader.py): a display, a MIDI server,
# an instrument and a message bus for it.
#
#     evening.sh PROGRAM INSTRUMENT PICTURES DRIVER EVENING
#
# EVENING names one of the scripts evening_*.py.
set -euo pipefail
# shellcheck source=tests/system/gui-lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/gui-lib.sh"
screen_width=1280
screen_height=960

begin "evening-$5" "$@"
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
"${our_own[@]}" dbus-run-session -- /usr/bin/python3 -B "${BASH_SOURCE[0]%.sh}_$5.py" "$program" "$(realpath "$4")" "$stage" "$pictures" \
    {lane_lock}>&- 2>"$stage/bus.log" &
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
