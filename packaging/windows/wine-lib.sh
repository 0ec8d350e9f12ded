# shellcheck shell=bash disable=SC2034,SC2154
# A Windows to try things on: Wine with a display, in a folder that goes with the trial. Sourced after tests/system/gui-lib.sh.

wine_log=
# set_wine NAME PICTURES: a stage as the system tests have it, and on it a Windows 10 that nobody has used yet.
set_wine() {
    mkdir -p "$2"
    set_stage "$1" "$(realpath "$2")"
    trap leave_wine EXIT
    export WINEPREFIX=$stage/wine WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=;winmm=n,b"
    wine_log=$stage/wine.log
    wineboot --init >"$wine_log" 2>&1
    wine reg add 'HKCU\Software\Wine' /v Version /d win10 /f >>"$wine_log" 2>&1
    wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /v 'Segoe UI' /d 'Liberation Sans' /f >>"$wine_log" 2>&1 # which Windows has
    wineserver --wait
    wineserver --persistent=600
    user_files=$WINEPREFIX/drive_c/users/$(id -un)
}

# windows_path PATH: as a program there names it.
windows_path() {
    local path=${1//\//\\}
    printf '%s' "Z:$path"
}

# The process of the program that runs; false where none does.
program_process() {
    pgrep -f '[v]elluto\.exe' | while read -r pid; do
        ! tr '\0' '\n' <"/proc/$pid/environ" 2>/dev/null | grep -qxF "WINEPREFIX=$WINEPREFIX" || { say "$pid" && break; }
    done | grep .
}

no_program_runs() {
    ! program_process >/dev/null
}

# picture NAME: of the whole screen.
picture() {
    settle
    import -window root "$pictures/$test_name-$1.png"
}

# registry KEY [VALUE]: whether there is such a one.
registry() {
    wine reg query "$1" ${2+/v "$2"} >>"$wine_log" 2>&1
}

# A program under Wine is never without something to do: here it is at rest where the screen stands still for a while.
is_at_rest() {
    take "$stage/rest.ppm"
    sleep 0.3
    ! screen_differs "$stage/rest.ppm"
}

leave_wine() {
    local status=$?
    set +e
    [ "$status" -eq 0 ] || import -window root "$pictures/failed-$test_name.png"
    unset DISPLAY # that was the last picture
    wineserver --kill 2>/dev/null
    (exit "$status")
    leave_stage
}
