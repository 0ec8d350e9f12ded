#!/usr/bin/env bash
# From the start of the process to its first painted frame, and the memory it has then, beside vmpk, a program of the same
# kind and toolkit, and beside the least that a program of this shape can be, on the same virtual display with the same MIDI server.
# Installs vmpk only for this.
#
#     bench/startup.sh [RUNS]
set -euo pipefail
own_script=$(realpath "${BASH_SOURCE[0]}")
root=$(realpath "$(dirname "$own_script")/..")
cd "$root"
# shellcheck source=tools/lib.sh
. tools/lib.sh
install_packages "${build_packages[@]}" "${test_packages[@]}" "${check_packages[@]}" vmpk python3-xlib
# shellcheck source=tests/system/gui-lib.sh
. tests/system/gui-lib.sh
runs=${1-101}
screen_width=1280
screen_height=800
failures=0

build release velluto
build bench bench_bare_frame
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
start_bare() { start "Bare frame" "$root/build/bench/bench/bench_bare_frame"; }
# What else the machine does only makes a start longer: of each program the mean of its faster half counts, and the memory of its middle one.
usual() {
    sort -n "$1" | awk -v half="$((($(wc -l <"$1") + 1) / 2))" 'NR <= half { sum += $1 } NR == half { printf "%.1f %d\n", sum / half, $2 }'
}

# beside WHAT OURS THEIRS MOST-TIME MOST-MEMORY: the starts in the file OURS beside another's in THEIRS, as times of it.
beside() {
    local ours_ms ours_kib
    read -r ours_ms ours_kib < <(usual "$2")
    awk -v what="$1" -v a="$ours_ms" -v c="$ours_kib" -v t="$4" -v m="$5" '{
        printf "%-62s %6.2f times %4.2f times%s\n", "Start to first painted frame beside " what " (" a " and " $1 " ms)", a / $1, t, a / $1 <= t ? "" : "  OVER"
        printf "%-62s %6.2f times %4.2f times%s\n", "Own resident memory beside " what " (" int(c / 1024) " and " int($2 / 1024) " MiB)", c / $2, m, c / $2 <= m ? "" : "  OVER"
        exit a / $1 <= t && c / $2 <= m ? 0 : 1
    }' < <(usual "$3") || failures=1
}

# In turn, so that both meet the same machine; the first starts only warm it. The limit beside vmpk is far off: a third of the starts will do.
start_ours >/dev/null
start_theirs >/dev/null
start_bare >/dev/null
for ((run = 0; run < runs / 3; run++)); do
    start_ours >>"$stage/ours-and-theirs"
    start_theirs >>"$stage/theirs"
done
# Each as often first as second, since a start has to do with how the one before has ended.
for ((run = 0; run < runs; run++)); do
    ((run % 2 == 0)) || start_bare >>"$stage/bare"
    start_ours >>"$stage/ours"
    ((run % 2 != 0)) || start_bare >>"$stage/bare"
done
beside vmpk "$stage/ours-and-theirs" "$stage/theirs" 0.50 1.00
beside "a bare frame" "$stage/ours" "$stage/bare" 1.15 1.15
exit "$failures"
