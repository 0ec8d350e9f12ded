#!/usr/bin/env bash
# Measures how true to a file's times the sequencer plays it to a JACK client, and what it costs while it is idle, with JACK
# servers of its own: one of a short period, one of a usual one.
#
#     bench/sequencer.sh
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=tools/lib.sh
. tools/lib.sh
install_packages "${build_packages[@]}" "${test_packages[@]}" "${check_packages[@]}"
build bench bench_sequencer_timing
stage=$(mktemp -d)
server=
trap '[ -z "$server" ] || end_processes "$server"; rm -rf "$stage"' EXIT
export JACK_DEFAULT_SERVER=velluto-bench JACK_NO_AUDIO_RESERVATION=1 JACK_NO_START_SERVER=1
status=0
for period in 64 1024; do
    say "JACK periods of $period frames"
    # -S: the server waits for a client that is late, so that a busy machine loses no note.
    jackd -n "$JACK_DEFAULT_SERVER" --no-realtime -S -d dummy -r 48000 -p "$period" >"$stage/jackd.log" 2>&1 &
    server=$!
    jack_wait -w -t 5 >/dev/null
    build/bench/bench/bench_sequencer_timing "$stage/notes.mid" || status=1
    end_processes "$server"
    server=
done
exit "$status"
