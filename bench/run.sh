#!/usr/bin/env bash
# Runs all benchmarks and prints what they measured beside their limits. Not part of test.sh: a machine that has other things
# to do is no yardstick.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=tools/lib.sh
. tools/lib.sh
install_packages "${build_packages[@]}" "${test_packages[@]}" "${check_packages[@]}"
programs=(bench_core bench_edit bench_keyboard bench_sequencer bench_tool)
build bench "${programs[@]}" bench_growth
status=0
for program in "${programs[@]}"; do
    "build/bench/bench/$program" --benchmark_filter=-Again --benchmark_repetitions=9 \
        --benchmark_enable_random_interleaving=true || status=1
done
build/bench/bench/bench_core --benchmark_filter=Again --benchmark_repetitions=9 --benchmark_enable_random_interleaving=true || status=1
# How cost grows, and its picture in docs/.
build/bench/bench/bench_growth --benchmark_repetitions=5 --benchmark_min_time=0.2 \
    --benchmark_out=build/bench/growth.json --benchmark_out_format=json || status=1
bench/plot_growth.py build/bench/growth.json docs/pictures/growth.svg
bench/startup.sh || status=1
bench/idle.sh || status=1
bench/sequencer.sh || status=1
bench/keyboard-latency.sh || status=1
exit "$status"
