#!/usr/bin/env bash
# Builds what there is for Windows and runs its tests as Windows programs, under Wine: the unit tests of every room, the scenarios,
# what the fuzzers have kept, and, where build.sh has made a Qt for Windows, the tests of the desktop, on a display of their own.
# Installs what is missing. What cannot run there, and why, stands in docs/OTHER-SYSTEMS.md.
#
#     packaging/windows/test.sh [NAME...]    names: those of the programs to run, as unit_files; all where none is given
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
# shellcheck source=tools/lib.sh
. tools/lib.sh
# shellcheck source=packaging/windows/qt-lib.sh
. packaging/windows/qt-lib.sh
# shellcheck source=packaging/windows/wine-lib.sh
. packaging/windows/wine-lib.sh

wanted=" $* "
programs=$PWD/build/windows/tests
WINEPREFIX=$(mktemp -d)
export WINEPREFIX WINEDEBUG=-all
# No question about what a new prefix has no need of; and a winmm.dll that lies beside a program is the one that it gets.
export WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe=;winmm=n,b"
unset DISPLAY
# Not as root, who may write to what is read-only.
as_user=()
if [ "$(id -u)" -eq 0 ]; then
    as_user=(setpriv --reuid=65534 --regid=65534 --clear-groups env HOME="$WINEPREFIX")
    chown 65534:65534 "$WINEPREFIX"
    if ! "${as_user[@]}" test -r data/samples/Full-64.pcg; then
        rmdir "$WINEPREFIX"
        complain "Run as root the tests are those of the user nobody, who may not read $PWD: put the project where he may"
        exit 1
    fi
fi
passed=0
failed=0
skipped=0

# asked_for NAME: what was run is no longer among the names that are left.
left=$wanted
asked_for() {
    left=${left// $1 / }
    [ "$wanted" = "  " ] || [[ $wanted == *" $1 "* ]]
}

# The programs of the build whose paths below tests/ match: not those that earlier builds have left.
built() {
    [ ! -f build/windows/build.ninja ] ||
        ninja -C build/windows -t targets all | sed -n "s|^tests/\($1\)\.exe:.*|$programs/\1.exe|p" | sort
}

# run LOG COMMAND...: what it says goes to the log. False where it fails or takes longer than ten minutes.
run() {
    local log=$1
    shift
    "${as_user[@]}" timeout 600 wine "$@" >"$log" 2>&1 </dev/null
}

# unit_tests NAME PROGRAM [OPTION...]: it runs all of its tests at once, since to start a program takes longer than most of them.
unit_tests() {
    local name=$1 log=build/windows/$1.log good bad out ended_well=true
    run "$log" "$2" --gtest_brief=1 "${@:3}" || ended_well=false
    good=$(sed -n 's/^\[  PASSED  \] \([0-9]*\) tests\{0,1\}\.\r\{0,1\}$/\1/p' "$log")
    bad=$(grep -c '^\[  FAILED  \] .* ms)' "$log" || true)
    out=$(sed -n 's/^\[  SKIPPED \] \([0-9]*\) tests\{0,1\}[.,].*$/\1/p' "$log")
    if [ -z "$good" ] || { [ "$bad" -eq 0 ] && ! $ended_well; }; then # it ended in the middle, or badly
        good=${good:-0}
        bad=$((bad + 1))
    fi
    [ "$bad" -eq 0 ] || tail -n 200 "$log"
    passed=$((passed + good))
    failed=$((failed + bad))
    skipped=$((skipped + ${out:-0}))
    say "$name: $good passed, $bad failed${out:+, $out skipped}"
}

scenarios() {
    local script name log good=0 bad=0 as_expected
    for script in tests/scenarios/*.txt tests/scenarios/refused/*.txt; do
        name=${script##*/}
        [ "$name" != CMakeLists.txt ] || continue
        log=build/windows/scenario-$name.log
        as_expected=true
        run "$log" "$programs/scenarios/run_scenario.exe" "$script" || as_expected=false
        case $script in
        */refused/*) if ! $as_expected && grep -q '^line [0-9]*, ' "$log"; then as_expected=true; else as_expected=false; fi ;; # must fail, and say where
        esac
        if $as_expected; then
            good=$((good + 1))
        else
            bad=$((bad + 1))
            say "scenario $name:"
            tail -n 20 "$log"
        fi
    done
    passed=$((passed + good))
    failed=$((failed + bad))
    say "scenarios: $good passed, $bad failed"
}

# The built tool on the files that ship: what it says, and the code that it ends with.
tool() {
    local log=build/windows/tool.log
    if run "$log" build/windows/velluto-tool.exe check data/samples && grep -q '; nothing wrong$' "$log" &&
        ! run "$log" build/windows/velluto-tool.exe check data/none.pcg; then
        passed=$((passed + 1))
        say "tool: passed"
    else
        failed=$((failed + 1))
        tail -n 20 "$log"
        say "tool: FAILED"
    fi
}

# Wine begins anew on a display as large as the larger screen that these tests have on Linux, with fonts like those of Windows.
set_desktop() {
    local place=$WINEPREFIX/display
    "${as_user[@]}" wineserver -k || true
    mkdir "$place"
    four_faces >"$place/fonts.conf"
    windows_10 >"$place/windows-10.reg"
    start_display "$place" 2560x1920
    chown --reference="$WINEPREFIX" "$place" "$XAUTHORITY"
    # shellcheck disable=SC2016 # those are the script's
    printf '#!/bin/bash\n"${@:2}" >"$1.new" && mv "$1.new" "$1"\n' >"$place/ask.sh"
    chmod 755 "$place/ask.sh"
    export FONTCONFIG_FILE=$place/fonts.conf VELLUTO_POPPLER
    VELLUTO_POPPLER=$(windows_path "$place/ask.sh")
    "${as_user[@]}" wine regedit /S "$(windows_path "$place/windows-10.reg")" >>build/windows/wineboot.log 2>&1
}

desktop_tests() {
    local folder=build/windows-desktop-tests/tests/desktop
    if ! qt_kept; then
        say "desktop_tests: left out; packaging/windows/build.sh has made no Qt for Windows"
        [ "$wanted" = "  " ] || failed=$((failed + 1))
        return 0
    fi
    install_packages "${windows_setup_packages[@]}" "${windows_trial_packages[@]}" "${test_packages[@]}"
    build_over_qt windows-desktop-tests desktop_tests
    put_libraries "$folder"
    put "$qt_folder/bin/Qt6Test.dll" "$folder"
    set_desktop
    unit_tests desktop_tests "$folder/desktop_tests.exe" --gtest_brief=0 # a test that hangs is named in the log
}

# What the fuzzers have kept, and the samples.
corpus() {
    local name=$1 log=build/windows/$1.log folder=build/windows/corpus/$1
    rm -rf "$folder"
    mkdir -p "$folder"
    [ ! -f "tests/fuzz/corpus/$name.tar.gz" ] || tar -xzf "tests/fuzz/corpus/$name.tar.gz" -C "$folder"
    if run "$log" "$programs/fuzz/$name.exe" "$folder" data/samples; then
        passed=$((passed + 1))
        say "$name: $(grep -o '^[0-9]* inputs' "$log") passed"
    else
        failed=$((failed + 1))
        tail -n 20 "$log"
        say "$name: FAILED"
    fi
}

trap '"${as_user[@]}" wineserver -k 2>/dev/null || true; end_processes "${started_pids[@]}"; rm -rf "$WINEPREFIX"' EXIT # the server is this prefix's own
install_packages "${build_packages[@]}" "${windows_packages[@]}"
mkdir -p build/windows
[ "$wanted" = " desktop_tests " ] || build windows
"${as_user[@]}" wineboot --init >build/windows/wineboot.log 2>&1 || { cat build/windows/wineboot.log >&2 && exit 1; }
# As on Windows a dot at the front of a name hides nothing.
"${as_user[@]}" wine reg add 'HKCU\Software\Wine' /v ShowDotFiles /d Y /f >>build/windows/wineboot.log 2>&1
for program in $(built '\(winmm/\)\{0,1\}unit_[a-z_]*'); do
    name=$(basename "$program" .exe)
    if asked_for "$name"; then
        unit_tests "$name" "$program"
    fi
done
if asked_for scenarios; then
    scenarios
fi
if asked_for tool; then
    tool
fi
for program in $(built 'fuzz/fuzz_[a-z_]*'); do
    name=$(basename "$program" .exe)
    if asked_for "$name"; then
        corpus "$name"
    fi
done
if asked_for desktop_tests; then
    desktop_tests
fi
if [ -n "${left// /}" ]; then
    complain "there is no such program:$left"
    failed=$((failed + 1))
fi
[ "$skipped" -eq 0 ] || say "$skipped skipped"
say "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
