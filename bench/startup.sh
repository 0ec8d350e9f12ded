#!/usr/bin/env bash
# From the start of the process to its first painted frame, and the memory it has then, beside vmpk, a program of the same
# kind and toolkit, on the same virtual display with the same MIDI server. Installs vmpk only for this.
#
#     bench/startup.sh [RUNS]
set -euo pipefail
root=$(realpath "$(dirname "${BASH_SOURCE[0]}")/..")
cd "$root"
# shellcheck source=tests/system/gui-lib.sh
. tests/system/gui-lib.sh
runs=${1-11}
screen_width=1280
screen_height=800
most_time=0.50
most_memory=1.00

install_packages "${build_packages[@]}" "${test_packages[@]}" "${check_packages[@]}" vmpk python3-xlib
build release velluto
build dev jack-instrument
set_stage startup "$root/build"
add_named_cookie
start_jack
start_instrument build/dev/tests/system/jack-instrument PA80
export HOME=$stage/home QT_QPA_PLATFORM=xcb
# A first start by hand's speed, so that the language is known and no question stands before the frame.
start_in_english "$root/build/release/velluto"
changing press alt+f
press x
wait_until "the end of the program" program_has_gone

# start TITLE COMMAND: one start, as a line "milliseconds kibibytes". vmpk sometimes stays at its splash screen for good: that one
# is done again.
start() {
    local try
    for try in 1 2 3; do
        (cd "$stage/home" && /usr/bin/python3 "$root/bench/first_paint.py" "$@") && return 0
    done
    fail "$2 shows no window, try after try ($try)"
}
start_ours() { start "Velluto v 1.1 - Velluto" "$root/build/release/velluto"; }
start_theirs() { start "Virtual MIDI Piano" vmpk; }
middle() { sort -n "$1" | sed -n "$((runs / 2 + 1))p"; }

# In turn, so that both meet the same machine; the first two starts only warm it.
start_ours >/dev/null
start_theirs >/dev/null
for ((run = 0; run < runs; run++)); do
    start_ours >>"$stage/ours"
    start_theirs >>"$stage/theirs"
done
read -r ours_ms ours_kib < <(middle "$stage/ours")
read -r theirs_ms theirs_kib < <(middle "$stage/theirs")

awk -v a="$ours_ms" -v b="$theirs_ms" -v c="$ours_kib" -v d="$theirs_kib" -v t="$most_time" -v m="$most_memory" 'BEGIN {
    printf "%-58s %6.2f times %4.2f times%s\n", "Start to first painted frame beside vmpk (" a " and " b " ms)", a / b, t, a / b <= t ? "" : "  OVER"
    printf "%-58s %6.2f times %4.2f times%s\n", "Own resident memory beside vmpk (" int(c / 1024) " and " int(d / 1024) " MiB)", c / d, m, c / d <= m ? "" : "  OVER"
    exit a / b <= t && c / d <= m ? 0 : 1
}'
