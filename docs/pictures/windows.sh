#!/usr/bin/env bash
# Takes a sheet of all windows for each language, theme and scale, beside this script: windows-it-dark@2.png and so on. Needs what
# ./test.sh installs; the windows are those of a test, so no display is needed.
set -euo pipefail
here=$(realpath "$(dirname "${BASH_SOURCE[0]}")")
cd "$here/../.."
# shellcheck source=tools/lib.sh
. tools/lib.sh

build dev desktop_tests
windows=$(mktemp -d)
trap 'rm -rf "$windows"' EXIT
for theme in light dark; do
    for scale in 1 2; do
        rm -f "$windows"/*
        VELLUTO_PICTURES=$windows VELLUTO_THEME=$theme QT_SCALE_FACTOR=$scale build/dev/tests/desktop/desktop_tests \
            --gtest_filter='*EveryWindowTest*' >"$windows/log" 2>&1 || {
            cat "$windows/log" >&2
            exit 1
        }
        for tongue in it en; do
            sheet=$here/windows-$tongue-$theme@$scale.png
            montage "$windows"/*-"$tongue".png -background gray50 -geometry +8+8 -tile 3x -colors 256 -strip "PNG8:$sheet"
            say "$sheet"
        done
    done
done
