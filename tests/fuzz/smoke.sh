#!/usr/bin/env bash
# Builds the fuzz targets and lets each run for a while, from the sample files and from nothing. What makes one fail stays
# in build/fuzz, to be fed to it again.
#
#     tests/fuzz/smoke.sh [SECONDS] [TARGET...]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
# shellcheck source=tools/lib.sh
. tools/lib.sh
seconds=${1-10}
shift || true
build fuzz "$@"
targets=()
for target in build/fuzz/tests/fuzz/fuzz_*; do
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
    corpus=("$finds/$name")
    mkdir "$finds/$name"
    case $name in
    *_file) corpus+=(data/samples) ;;
    esac
    "$target" -max_total_time="$seconds" -timeout=10 -len_control=0 -max_len=45000 -seed=1 -artifact_prefix="build/fuzz/$name-" "${corpus[@]}"
done
