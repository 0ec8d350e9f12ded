#!/usr/bin/env bash
# What the program takes while nobody uses it: how often it wakes up with a file open and no MIDI server, and, with a server of 64
# frames at 48 kHz, what it takes of a core with the player's window open, beside a plain JACK client that has nothing to send.
#
#     bench/idle.sh [SECONDS]    of each look; 20
set -euo pipefail
own_script=$(realpath "${BASH_SOURCE[0]}")
root=$(realpath "$(dirname "$own_script")/..")
cd "$root"
# shellcheck source=tools/lib.sh
. tools/lib.sh
install_packages "${build_packages[@]}" "${test_packages[@]}" "${check_packages[@]}"
# shellcheck source=tests/system/gui-lib.sh
. tests/system/gui-lib.sh
seconds=${1-20}
frames=64
most_wakeups=3      # a second, beside the clock of the status bar
most_load=0.3       # percent of a core
most_wakeups_more=3 # a second, than a plain client and the clock

# spent PID: how often the threads of a process have gone to sleep of their own will, and the nanoseconds they have run.
spent() {
    local task switches=0 count ran all=0
    for task in "/proc/$1/task"/*; do
        count=$(sed -n 's/^voluntary_ctxt_switches:\t//p' "$task/status")
        read -r ran _ <"$task/schedstat"
        switches=$((switches + count)) all=$((all + ran))
    done
    printf '%s %s\n' "$switches" "$all"
}

# look PID...: for each process a line with its wakeups a second and its percent of a core, all over the same time.
look() {
    local pid before=() after=() index=0
    for pid in "$@"; do before+=("$(spent "$pid")"); done
    sleep "$seconds"
    for pid in "$@"; do after+=("$(spent "$pid")"); done
    for pid in "$@"; do
        awk -v before="${before[index]}" -v after="${after[index]}" -v seconds="$seconds" 'BEGIN {
            split(before, b); split(after, a)
            printf "%.1f %.2f\n", (a[1] - b[1]) / seconds, (a[2] - b[2]) / seconds / 1e7
        }'
        index=$((index + 1))
    done
}

status=0
# row WHAT MEASURED UNIT LIMIT
row() {
    local over
    over=$(awk -v a="$2" -v m="$4" 'BEGIN { print a <= m ? "" : "  OVER" }')
    printf '%-72s %7s %s  %s%s\n' "$1" "$2" "$3" "$4" "$over"
    [ -z "$over" ] || status=1
}

less() {
    awk -v a="$1" -v b="$2" 'BEGIN { printf "%.1f", a - b }'
}

build release velluto
build dev jack-keys
set_stage idle "$root/build"
seed "$shipped" "$stage/home"
export HOME=$stage/home QT_QPA_PLATFORM=xcb

choose_english "$root/build/release/velluto"
press Return
await_window "Velluto v 1.1" # no MIDI input
press Return
await_window "Velluto v 1.1 - Velluto"
open_file "$stage/home/samples/Full-64.pcg"
read -r wakeups _ < <(look "$program_pid")
row "Idle with a file open: wakeups a second beside the clock" "$(less "$wakeups" 1)" "   " "$most_wakeups"
leave_program

start_jack "$frames"
mkfifo "$stage/plain"
"${our_own[@]}" build/dev/tests/system/jack-keys Plain <>"$stage/plain" >"$stage/plain.log" 2>&1 &
plain_pid=$!
started_pids+=("$plain_pid")
wait_until "a plain client" grep -qsx ready "$stage/plain.log"
start_program "$root/build/release/velluto"
await_window "Velluto v 1.1 - Velluto"
open_file "$stage/home/samples/Full-64.pcg"
changing press alt+i
sleep 5 # the outputs rest after three seconds
{
    read -r wakeups load
    read -r plain_wakeups plain_load
} < <(look "$program_pid" "$plain_pid")
say "Idle with the player open, $frames frames: $wakeups wakeups a second, a plain client $plain_wakeups; of a core $load %, a plain client $plain_load %"
row "Idle with the player open: percent of a core" "$load" "%  " "$most_load"
row "Idle with the player open: wakeups a second more than a plain client" "$(less "$wakeups" "$plain_wakeups")" "   " "$most_wakeups_more"
leave_program
exit "$status"
