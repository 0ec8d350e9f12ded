#!/usr/bin/env bash
# Builds the fuzz targets and lets each run for a while, from the inputs in tests/fuzz/corpus and the sample files. What makes
# one fail stays in build/asan, to be fed to it again.
#
#     tests/fuzz/run.sh [--keep] [SECONDS [TARGET...]]    10 seconds each, all targets
#
# --keep makes the small inputs that together reach all that was reached the new corpus.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
# shellcheck source=tools/lib.sh
. tools/lib.sh
keep=false
options=(-seed=1) # a test does the same each time, a search does not
if [ "${1-}" = --keep ]; then
    keep=true
    options=()
    shift
fi
seconds=${1-10}
shift || true
longest_input=45000 # bytes; a settings file and some more
longest_kept=1000
seeds=$PWD/tests/fuzz/corpus

build asan "${@:-tests/fuzz/all}"
targets=()
for target in build/asan/tests/fuzz/fuzz_*; do
    name=${target##*/}
    if [ -f "$target" ] && [ -x "$target" ] && { [ $# -eq 0 ] || [[ " $* " == *" $name "* ]]; }; then
        targets+=("$target")
    fi
done
[ "${#targets[@]}" -gt 0 ] || { complain "no fuzz target was built" && exit 1; }
finds=$(mktemp -d)
trap 'rm -rf "$finds"' EXIT
for target in "${targets[@]}"; do
    name=${target##*/}
    mkdir "$finds/$name"
    [ ! -f "$seeds/$name.tar.gz" ] || tar -xzf "$seeds/$name.tar.gz" -C "$finds/$name"
    corpus=("$finds/$name")
    case $name in
    fuzz_bank_file | fuzz_program_file | fuzz_tool_files) corpus+=(data/samples) ;;
    esac
    "$target" "${options[@]}" -max_total_time="$seconds" -timeout=20 -len_control=0 -max_len="$longest_input" \
        -artifact_prefix="build/asan/$name-" "${corpus[@]}"
    if $keep; then
        mkdir "$finds/kept"
        "$target" -merge=1 -max_len="$longest_kept" "$finds/kept" "$finds/$name"
        tar -cz --sort=name --mtime=@0 --owner=0 --group=0 --numeric-owner -f "$seeds/$name.tar.gz" -C "$finds/kept" .
        rm -r "$finds/kept"
    fi
done
