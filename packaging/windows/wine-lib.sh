# shellcheck shell=bash disable=SC2034,SC2154
# A Windows to try things on: Wine with a display, in a folder that goes with the trial. Sourced after tests/system/gui-lib.sh.

# Of the shape of Windows' own fonts, which nobody may pass on. Without them Wine takes any font there is, for a list the one of a book.
declare -gA font_like=(["Segoe UI"]="Open Sans" [Tahoma]="Open Sans" ["MS Shell Dlg"]="Open Sans" ["MS Shell Dlg 2"]="Open Sans"
    ["Courier New"]="Liberation Mono" [Arial]="Liberation Sans" ["Times New Roman"]="Liberation Serif")

# Wine's registry as that of a Windows 10: its fonts, and what it draws menus, messages and titles in: Segoe UI, 9 points, smoothed.
windows_10() {
    local name font=f4,ff,ff,ff,00,00,00,00,00,00,00,00,00,00,00,00,90,01,00,00,00,00,00,01,00,00,00,00
    font+=$(printf 'Segoe UI' | sed 's/./&\x00/g' | od -A n -v -t x1 | tr -d '\n' | tr ' ' ,)$(printf ',00%.0s' {1..48})
    printf 'Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER\\Software\\Wine]\n"Version"="win10"\n'
    printf '\n[HKEY_CURRENT_USER\\Software\\Wine\\Fonts\\Replacements]\n'
    for name in "${!font_like[@]}"; do
        printf '"%s"="%s"\n' "$name" "${font_like[$name]}"
    done
    printf '\n[HKEY_CURRENT_USER\\Control Panel\\Desktop]\n"FontSmoothing"="2"\n"FontSmoothingType"=dword:2\n'
    printf '\n[HKEY_CURRENT_USER\\Control Panel\\Desktop\\WindowMetrics]\n'
    for name in Caption Icon Menu Message SmCaption Status; do
        printf '"%sFont"=hex:%s\n' "$name" "$font"
    done
}

# Fontconfig's settings for Wine, which takes the lightest face of a family for its regular one: no faces but the four of each family of
# Windows'.
four_faces() {
    printf '<?xml version="1.0"?>\n<!DOCTYPE fontconfig SYSTEM "urn:fontconfig:fonts.dtd">\n<fontconfig><dir>/usr/share/fonts</dir><selectfont>'
    printf '<rejectfont><glob>*/OpenSans-%s*</glob></rejectfont>' Light Cond Semibold Extra
    printf '</selectfont></fontconfig>\n'
}

wine_log=
# set_wine NAME PICTURES: a stage as the system tests have it, and on it a Windows 10 that nobody has used yet.
set_wine() {
    mkdir -p "$2"
    set_stage "$1" "$(realpath "$2")"
    trap leave_wine EXIT
    # No question about what a new one has no need of, none of this machine's own menus, and the winmm.dll that lies beside a program.
    export WINEPREFIX=$stage/wine WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe=;winmm=n,b"
    wine_log=$stage/wine.log
    four_faces >"$stage/fonts.conf"
    export FONTCONFIG_FILE=$stage/fonts.conf
    wineboot --init >"$wine_log" 2>&1
    windows_10 >"$stage/windows-10.reg"
    wine regedit /S "$(windows_path "$stage/windows-10.reg")" >>"$wine_log" 2>&1
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
        ! tr '\0' '\n' 2>/dev/null <"/proc/$pid/environ" | grep -qxF "WINEPREFIX=$WINEPREFIX" || { say "$pid" && break; }
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

# The frame after one of the system's own dialogs. Wine gives the keyboard to a window of the toolkit's that goes with the dialog and is
# never shown; once that is gone, no window has it for X, though the frame has it for Wine, which does not ask X a second time.
come_back() {
    wait_until "the keyboard in the frame" frame_is_back
    settle
}

frame_is_back() {
    local frame
    ! has_focus "Velluto v 1.1 - Velluto" || return 0
    for frame in $(xdotool search --name '^Velluto v 1.1 - Velluto$' 2>/dev/null); do
        xdotool windowactivate "$frame" 2>/dev/null
    done
    return 1
}

# A failure is told before all windows go with Wine.
leave_wine() {
    local status=$?
    set +e
    if [ "$status" -ne 0 ]; then
        tell_failure
        tail -n 20 "$wine_log" >&2
    fi
    unset DISPLAY # all is told
    wineserver --kill 2>/dev/null
    (exit "$status")
    leave_stage
}
