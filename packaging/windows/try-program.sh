#!/usr/bin/env bash
# Tries the desktop program that build.sh has made, unpacked and under Wine, as a new user would: choose the language, open a file by the
# dialog, tie it to bank User 1, choose the instrument, click a row of the bank, cut, save, leave; then files at the start, from a
# second start, the keyboard, devices with faults, the player, printing, the end of the session, and every window in both themes and
# languages. The instrument is a winmm.dll on paper (tests/winmm). What it hears, what is said of its faults, and the files and settings
# that are left, are what Linux has, but for paths.
#
#     packaging/windows/try-program.sh [PICTURES]    PICTURES: a folder for pictures of the screen, else build/windows-desktop/pictures;
#                                                    on-windows-light.png and on-windows-dark.png are also kept in docs/pictures
#
# It installs what is missing, and builds what is not up to date: the program, and for the comparison the driver and the winmm.dll.
set -euo pipefail
own_script=$(realpath "${BASH_SOURCE[0]}")
[ $# -eq 0 ] || set -- "$(realpath -m "$1")"
cd "$(dirname "$own_script")/../.."
# shellcheck source=packaging/windows/trial-lib.sh
. packaging/windows/trial-lib.sh
# shellcheck source=tests/system/keyboard-lib.sh
. tests/system/keyboard-lib.sh
# shellcheck source=tests/system/player-lib.sh
. tests/system/player-lib.sh
# shellcheck source=packaging/windows/program-lib.sh
. packaging/windows/program-lib.sh
# shellcheck source=packaging/windows/devices-lib.sh
. packaging/windows/devices-lib.sh
# shellcheck source=packaging/windows/sheet-lib.sh
. packaging/windows/sheet-lib.sh

out=$PWD/build/windows-desktop
version=$(project_version)
archive=$out/Velluto-$version-windows.zip
screen_width=1280
screen_height=960

first_minutes() {
    linux linux <<'END'
device out "Instrument"
start en
choose open samples/Full-64.pcg 1
menu mnuPcgApri
press frmPcgUN(1) CommUser(9)
menu mnuDevMIDIOut(0)
menu mnuPcgUser(9)
click frmPcgUN(9) List1 4
close frmPcgUN(9)
click frmPcgUN(1) List1 2
key frmPcgUN(1) List1 Delete
menu mnuSalva
choose save samples/Mine.pcg
menu mnuSalvaAs
menu mnuExit
END
    start_in_wine
    await_window "Velluto v 1.1"
    picture language
    changing press Down # English
    changing press Return
    await_window "Velluto v 1.1"
    picture no-input
    press Return
    await_window "Velluto v 1.1 - Velluto"
    picture frame
    take "$stage/empty.ppm"
    press ctrl+a
    settle
    picture open-dialog
    choose_file "Velluto v 1.1- Open File" 'samples\Full-64.pcg'
    wait_until "the file's window" screen_differs "$stage/empty.ppm"
    settle
    find_fifth_row
    press_user 1
    changing press alt+p
    changing press Down
    changing press Right
    press Up # with one device there is nowhere else to go
    press Return
    wait_until "the open output" is_open
    changing press alt+v
    changing press g # "G User 1:"
    click "$row_x" "$row_y"
    expect "a click on the fifth row" "B0 00 79" "B0 20 40" "C0 04"
    picture clicked
    changing press ctrl+w
    changing press shift+Tab # from the button to the list
    changing press Home
    changing press Down Down
    changing press Delete
    press ctrl+s
    wait_until "the file without its third Program" same_bytes "$home/samples/Full-64.pcg" "$stage/linux/samples/Full-64.pcg"
    changing press alt+f
    changing press Up Up Up Up # from the recent file to "Salva come"
    press Return
    choose_file "Save file as" Mine
    wait_until "the file under its new name" same_bytes "$home/samples/Mine.pcg" "$stage/linux/samples/Mine.pcg"
    leave_program
    compare_settings
    say "First minutes: B0 00 79, B0 20 40, C0 04; the files and the settings are those of Linux"
}

# From here on there is an input too, and no word about it at the start.
files_handed_over() {
    echo "in Keys" >>"$stage/devices"
    start_again "$(windows_path "$home/samples/Full-8.prf")"
    picture file-at-start
    changing hand_over samples/Grouped-16.sty
    changing hand_over samples/Sparse-64.pcg
    picture file-handed-over
    copy_of_its_own
    leave_program
    local name number=61 # records before the recent files'
    for name in Sparse-64.pcg Grouped-16.sty Full-8.prf; do # the newest first
        [ "$(recent_file "$number")" = "$(windows_path "$home/samples/$name")" ] || fail "recent file $((number - 60)) is $(recent_file "$number")"
        number=$((number + 1))
    done
    say "Files: one at the start, two handed over by later starts, and a copy of its own"
}

# The path in this record of the settings, from 0.
recent_file() {
    dd if="$home/Velluto.ini" bs=500 skip="$1" count=1 status=none | head -c 234 | sed 's/ *$//'
}

# hand_over FILE: a start in the user's folder with this file ends at once, and well.
hand_over() {
    (cd "$home" && timeout 30 wine "$program_folder/velluto.exe" "$1") || fail "the start with $1 ended with $?"
}

frames() {
    [ "$(xdotool search --name '^Velluto v 1.1 - Velluto$' 2>/dev/null | wc -l)" -eq "$1" ]
}

copy_of_its_own() {
    (cd "$stage" && exec "${our_own[@]}" wine "$program_folder/velluto.exe") >"$stage/copy.log" 2>&1 &
    local copy=$!
    started_pids+=("$copy")
    wait_until "a second frame" frames 2
    await_window "Velluto v 1.1 - Velluto"
    picture copy
    changing press alt+f
    press x
    wait_until "the end of the copy" frames 1
    wait "$copy" || fail "the copy ended with $?"
    come_back
}

# By mouse, by the computer's own keys, by a slider; no note outlives the window.
keyboard() {
    start_again
    known=$(heard | wc -l)
    changing press alt+v
    changing press k
    expect "the opening" "${opening[@]}"
    find_piano
    over_white 0
    click_here
    expect "a click on the first key" "90 24 40" "80 24 40"
    over_white 14
    xdotool mousedown 1
    expect "a press" "90 3C 40"
    picture keyboard
    xdotool mouseup 1
    expect "its release" "80 3C 40"
    xdotool keydown z
    expect "the key of the letter Z" "90 3C 40"
    xdotool keyup z
    expect "its release" "80 3C 40"
    xdotool key p
    expect "the letter P" "90 58 40" "80 58 40"
    changing press shift+Tab
    changing press shift+Tab # to the last slider
    press Up
    expect "a step of the chorus" "B0 5D 01"
    over_white 7
    xdotool mousedown 1
    expect "a press that the window does not outlive" "90 30 40"
    changing xdotool key ctrl+w
    expect "the closing" "B0 7B 00"
    xdotool mouseup 1
    leave_program
    say "Keyboard: a click, letters, a slider, and the end of every note"
}

player() {
    three_songs "$home"
    start_again
    known=$(heard | wc -l)
    press alt+i
    wait_until "the player" title_is_there
    settle
    find_player
    changing file_panel
    changing folder_row 0
    transport 2
    expect "the first file" "C0 05" "90 3C 64" "90 3C 00" "90 3E 64" "90 3E 00"
    compile_evening
    transport 2
    wait_until "all files" heard_lines $((known + 9))
    import -window root "$pictures/$test_name-player.png" # which does not stand still
    [ "$(heard | tail -n +$((known + 1)) | head -n 9)" = "$song_a"$'\n'"$song_b"$'\n90 30 64' ] || fail "the files came as $(heard | tail -n +$known)"
    wait_until "a note" is_sounding
    transport 3
    wait_until "silence after a pause" is_silent
    transport 3
    wait_until "a note after the pause" is_sounding
    transport 6
    wait_until "silence after a stop" is_silent
    transport 2
    wait_until "a note before the end" is_sounding
    leave_program
    wait_until "silence after the end of the program" is_silent
    [ -s "$home/c-Evening.cmp" ] || fail "no compilation in $home"
    say "Player: three files of a compilation, pause, stop, and the end of every note"
}

# Where there is no printer the program offers a PDF file.
printing() {
    start_again "$(windows_path "$home/samples/Full-8.prf")"
    settle
    press ctrl+p
    choose_file "Velluto v 1.1 - Print" "$(windows_path "$stage/list.pdf")"
    wait_until "the PDF file" pdftotext -layout "$stage/list.pdf" "$stage/list.txt"
    grep -q '^ *1  *Granite Dawn$' "$stage/list.txt" || fail "the PDF file says: $(cat "$stage/list.txt")"
    leave_program
    say "Printing: a PDF file with $(grep -c . "$stage/list.txt") lines"
}

# On a printer that is made up: the same page, as Wine's driver writes it in PostScript.
printing_on_paper() {
    g++ -std=c++20 -O1 -shared -fPIC -o "$stage/libcups.so.2" tests/cups/Cups.cpp
    LD_LIBRARY_PATH=$stage STANDIN_PRINTER=$stage/page.ps start_again "$(windows_path "$home/samples/Full-8.prf")"
    settle
    press ctrl+p
    wait_until "a page" grep -qs '^%%EOF' "$stage/page.ps"
    leave_program
    [ "$(grep -c '^showpage' "$stage/page.ps")" -eq 1 ] || fail "more or less than one page"
    # The text is where it is in the PDF file, within two thirds of a millimetre: letters are lines and curves here.
    local left top paper
    read -r left top < <(pdftotext -bbox "$stage/list.pdf" - | sed -nE 's/.*xMin="([0-9.]*)" yMin="([0-9.]*)".*/\1 \2/p' | head -n 1)
    paper=$(awk -v left="$left" -v top="$top" '
        / translate$/ { x = $1; y = 3508 - $2 } # dots of a 300th of an inch; A4 is so many high
        / (move|line|curve)to$/ {
            if (!seen++ || $(NF - 2) < least_x) least_x = $(NF - 2)
            if (seen == 1 || $(NF - 1) < least_y) least_y = $(NF - 1)
        }
        END {
            right = (x + least_x) * 72 / 300 - left; down = (y + least_y) * 72 / 300 - top
            print right, down, (right * right < 4 && down * down < 4)
        }' "$stage/page.ps")
    [ "${paper##* }" -eq 1 ] || fail "the page is not where the PDF file has it, but so many points right and down: ${paper% *}"
    say "Printing: the same page on a printer"
}

# A file with changes: the end of the session asks what File, Exit asks, and a Cancel stops it.
end_of_session() {
    start_again "$(windows_path "$home/samples/Full-8.prf")"
    settle
    changing press Home
    changing press Delete
    local before
    before=$(sha256sum <"$home/samples/Full-8.prf")
    end_session
    picture end-of-session
    press Escape
    come_back
    wait "$session" || true
    ! program_has_gone || fail "the program has ended against its user's will"
    [ "$(sha256sum <"$home/samples/Full-8.prf")" = "$before" ] || fail "the file was saved without a word"

    end_session
    press alt+y
    await_end
    wait "$session" || true
    [ "$(sha256sum <"$home/samples/Full-8.prf")" != "$before" ] || fail "the file was not saved"
    say "End of the session: asked, refused once, saved"
}

# What Windows does where its user leaves, as far as the program's question.
end_session() {
    wine wineboot --end-session >>"$wine_log" 2>&1 &
    session=$!
    await_window "File Full-8.prf (1)"
}

# Whether the last sheet's question for the language is.
is_dark() {
    [ "$(convert "$sheet/01-language.png" -colorspace gray -format '%[fx:mean<0.5]' info:)" -eq 1 ]
}

# In the theme that Windows' user has chosen.
every_window() {
    sheet_of on-windows-light true k
    is_dark && fail "the program is dark on a light Windows"
    wine reg add 'HKCU\Software\Microsoft\Windows\CurrentVersion\Themes\Personalize' /v AppsUseLightTheme /t REG_DWORD /d 0 /f >>"$wine_log" 2>&1
    sheet_of on-windows-dark false t
    is_dark || fail "the program is light on a dark Windows"
    say "Every window, in both themes and both languages"
}

build dev velluto-driver
build windows standin_winmm
packaging/windows/build.sh --product
set_wine program "${1-$out/pictures}"
set_program "$archive"
first_minutes
files_handed_over
keyboard
devices_with_faults
player
printing
printing_on_paper
end_of_session
every_window
say "Pictures in $pictures"
