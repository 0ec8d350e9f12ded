#!/usr/bin/env bash
# Installs what is missing and runs every check and test of the project.
#
#     ./test.sh           what every change has to pass: format, rooms, names, scripts, and all tests
#     ./test.sh --full    that, and clang-tidy, a release, Windows, valgrind, all tests with sanitizers, threads, a short fuzzing. Where a Qt
#                         for Windows is kept (packaging/windows/build.sh), what is built for Windows is tested under Wine as well; else
#                         that counts as skipped
#
# The last line says "N passed, M failed"; each check counts as one. The exit code is 0 where nothing failed.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
# shellcheck source=tools/lib.sh
. tools/lib.sh
# shellcheck source=packaging/windows/qt-lib.sh
. packaging/windows/qt-lib.sh

full=false
case ${1-} in
'') ;;
--full) full=true ;;
*)
    complain "usage: ./test.sh [--full]"
    exit 2
    ;;
esac

passed=0
failed=0
skipped=0
seconds_fuzzed=7

# check NAME COMMAND...: one check, its words shown only where it fails.
check() {
    local name=$1 log=build/check-$1.log started=$SECONDS
    shift
    if "$@" >"$log" 2>&1; then
        passed=$((passed + 1))
        say "$name: passed ($((SECONDS - started)) s)"
    else
        failed=$((failed + 1))
        tail -n 200 "$log"
        say "$name: FAILED ($((SECONDS - started)) s)"
    fi
}

check_format() {
    git ls-files -z --cached --others --exclude-standard '*.cpp' '*.h' '*.c' | xargs -0 -P "$(nproc)" -n 40 clang-format --dry-run -Werror
}

check_scripts() {
    local scripts
    mapfile -d '' -t scripts < <(git grep -lz '^#!/usr/bin/env bash' -- ':!*.md')
    shellcheck --external-sources "${scripts[@]}"
    mapfile -d '' -t scripts < <(git grep -lz -e '^#!/usr/bin/env python3' --or -e '^"""' -- '*.py' tools)
    pyflakes3 "${scripts[@]}"
}

# As it ships: by GCC, optimised, and hardened.
check_release() {
    build release velluto velluto-tool && tools/check-hardened build/release/velluto build/release/velluto-tool
}

# Built for Windows, tested under Wine and looked at by clang-tidy, where a Qt shows that this machine does such things.
check_wine() {
    packaging/windows/test.sh && tools/check-tidy build/windows platform/windows/ tests/winmm/
}

number_of() {
    grep -m 1 -o "$1=\"[0-9]*\"" "$2" | tr -dc 0-9
}

# run_tests PRESET WHAT CTEST-ARGUMENT...: runs some of a preset's tests and counts them.
run_tests() {
    local preset=$1 what=$2 started=$SECONDS
    shift 2
    local results=$PWD/build/$preset/tests-$what.xml log=$PWD/build/$preset/tests-$what.log
    rm -f "$results"
    ctest --preset "$preset" --timeout 300 --no-tests=error --output-junit "$results" "$@" >"$log" 2>&1 || true
    if [ ! -s "$results" ]; then
        failed=$((failed + 1))
        tail -n 40 "$log"
        say "$preset $what tests: FAILED to run"
        return 0
    fi
    local all bad left
    all=$(number_of tests "$results")
    bad=$(number_of failures "$results")
    left=$(($(number_of skipped "$results") + $(number_of disabled "$results")))
    [ "$bad" -eq 0 ] || grep -vE '^ *([0-9]+/[0-9]+ Test .* Passed |Start +[0-9]+:)' "$log" | tail -n 400
    passed=$((passed + all - bad - left))
    failed=$((failed + bad))
    skipped=$((skipped + left))
    say "$preset $what tests: $((all - bad - left)) passed, $bad failed, $left skipped ($((SECONDS - started)) s)"
}

# tests PRESET: builds it and runs its tests. Those with a real MIDI server and a display keep apart by locks of their own.
tests() {
    local preset=$1 started=$SECONDS
    if ! build "$preset"; then
        failed=$((failed + 1))
        say "$preset build: FAILED"
        return 0
    fi
    say "$preset build: done ($((SECONDS - started)) s)"
    run_tests "$preset" other --parallel "$(nproc)" --exclude-regex '^system\.'
    run_tests "$preset" system --parallel "$(nproc)" --tests-regex '^system\.'
}

install_packages "${build_packages[@]}" "${test_packages[@]}" "${check_packages[@]}"
! $full || install_packages "${full_test_packages[@]}"
mkdir -p build
check format check_format
check rooms tools/check-rooms
check coverage tools/check-coverage
check scripts check_scripts
tests dev
if $full; then
    check release check_release
    check windows tools/check-windows --all # compiled
    if qt_kept; then
        check wine check_wine
    else
        skipped=$((skipped + 1))
        say "wine: skipped; no Qt of this version and these options in $windows_cache (packaging/windows/build.sh makes one)"
    fi
    check tidy tools/check-tidy build/dev
    check memory tools/check-memory build/dev
    tests asan
    check fuzz tests/fuzz/run.sh "$seconds_fuzzed"
    check races tools/check-races
fi

[ "$skipped" -eq 0 ] || say "$skipped skipped"
say "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
