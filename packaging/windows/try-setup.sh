#!/usr/bin/env bash
# Tries the setup that build.sh has made, under Wine: an older version is installed without a word, started from the start menu and used;
# the new one is installed over it page by page, opens files by their type, and is taken off again; then into another folder. Then once
# more where Windows speaks Italian. What is the user's stays throughout, and in the end nothing else does.
#
#     packaging/windows/try-setup.sh [PICTURES]    PICTURES: a folder for pictures of the screen, else build/windows-desktop/pictures
#
# It installs what is missing, and builds what is not up to date.
set -euo pipefail
own_script=$(realpath "${BASH_SOURCE[0]}")
[ $# -eq 0 ] || set -- "$(realpath -m "$1")"
cd "$(dirname "$own_script")/../.."
# shellcheck source=packaging/windows/trial-lib.sh
. packaging/windows/trial-lib.sh
# shellcheck source=packaging/windows/setup-lib.sh
. packaging/windows/setup-lib.sh

out=$PWD/build/windows-desktop
version=$(project_version)
setup=$out/Velluto-$version-setup.exe
uninstall_key='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Velluto'
classes='HKCU\Software\Classes'

# The version before: another guide, and a library that is not needed any more.
make_older() {
    cp -r "$out/stage/Velluto-$version" "$stage/older"
    rm -f "$stage/older/portable.txt"
    echo "The older guide" >"$stage/older/data/Velluto-UserGuide.txt"
    echo "Nobody's" >"$stage/older/old.dll"
    sum_data "$stage/older"
    SOURCE_DATE_EPOCH=0 make_setup "$stage/older" 0.9 "$out/desktop/velluto.ico" "$stage/older.exe"
}

# Windows speaks Italian from now on. Wine asks the C library for the name of the language and for nothing else of it.
speak_italian() {
    mkdir "$stage/locale"
    cp -r /usr/lib/locale/C.utf8 "$stage/locale/it_IT.utf8"
    speaking=(env LOCPATH="$stage/locale" LC_ALL=it_IT.UTF-8)
}

speaking=()
in_wine() {
    "${speaking[@]}" wine "$@" >>"$wine_log" 2>&1
}

# must COMMAND...: in Wine, with success.
must() {
    local status=0
    in_wine "$@" || status=$?
    [ "$status" -eq 0 ] || fail "$* ended with $status"
}

# value KEY [NAME]: of the registry, without a name the key's own.
value() {
    local what=(/ve)
    [ $# -eq 1 ] || what=(/v "$2")
    wine reg query "$1" "${what[@]}" 2>>"$wine_log" | tr -d '\r' | sed -n 's/^ .*  *REG_[A-Z]*  *//p'
}

# What is on the user's side of this Windows: each file, and the registry but for what Wine itself writes down there.
user_side() {
    (cd "$WINEPREFIX/drive_c" && find users -not -path '*/Temp/*' | sort)
    must reg export HKCU "$(windows_path "$stage/user.reg")" /y
    iconv -f UTF-16 -t UTF-8 "$stage/user.reg" | tr -d '\r' |
        awk '/^\[/ { wine = /^\[HKEY_CURRENT_USER\\(Control Panel|Keyboard Layout|Software\\Wine)(\\|\])/ } !wine && NF'
}

# What every Windows has, and Wine only once somebody needs it.
make_keys() {
    local key
    for key in "$classes" "${uninstall_key%\\*}"; do
        must reg add "$key" /f
    done
}

knows_version() {
    [ "$(value "$uninstall_key" DisplayVersion)" = "$1" ]
}

# is_installed VERSION KIND: the program is there, and Windows knows it, its types and how to take it off. KIND: what Explorer says of a
# Program file, by which the setup's language is told.
is_installed() {
    [ -f "$installed/velluto.exe" ] || fail "the program is not in $installed"
    [ ! -e "$installed/portable.txt" ] || fail "what is installed believes that it was only unpacked"
    [ -f "$link" ] || fail "no link in the start menu"
    knows_version "$1" || fail "Windows knows another version than $1"
    [ "$(value "$classes\\Velluto.Program")" = "$2" ] || fail "a Program file is called: $(value "$classes\\Velluto.Program")"
    local end opens
    opens=$(value "$classes\\Velluto.Program\\shell\\open\\command")
    [ "$opens" = "\"$(drive_path "$installed")\\velluto.exe\" \"%1\"" ] || fail "a Program file opens by $opens"
    for end in pcg=Program sty=Style prf=Performance; do
        [ "$(value "$classes\\.${end%=*}")" = "Velluto.${end#*=}" ] || fail ".${end%=*} is not Velluto's"
    done
}

# Windows knows the types of one user's programs with those of all users. Wine 8 does not: they are put among these.
know_types() {
    must reg export "$classes" "$(windows_path "$stage/types.reg")" /y
    iconv -f UTF-16 -t UTF-8 "$stage/types.reg" | sed 's/^\[HKEY_CURRENT_USER/[HKEY_LOCAL_MACHINE/' >"$stage/all-users.reg"
    must regedit /S "$(windows_path "$stage/all-users.reg")"
}

# drive_path PATH: as a program there names what lies on its own drive.
drive_path() {
    local path=${1#"$WINEPREFIX/drive_c/"}
    printf '%s' "C:\\${path//\//\\}"
}

# As a double click in the Explorer or the start menu does.
start() {
    must start "$(drive_path "$1")"
}

is_running() {
    program_process >/dev/null
}

await_start() {
    wait_until "the program" is_running
    program_pid=$(program_process)
    await_window "Velluto v 1.1"
}

close_program() {
    changing press alt+f
    press x
    wait_until "the end of the program" no_program_runs
    program_pid=
}

own_files() {
    (cd "$own" && find . -type f | sort | xargs -d '\n' sha256sum)
}

# The registry goes last.
program_is_off() {
    [ ! -e "$installed" ] && ! registry 'HKCU\Software\Velluto'
}

# The user's files stay as they are.
take_off() {
    own_files >"$stage/own"
    must "$installed/uninstall.exe" /S # which goes on in a copy of its own
    wait_until "the program to be taken off" program_is_off
    own_files | diff "$stage/own" - || fail "the user's files have changed"
}

older_version() {
    make_older
    must "$stage/older.exe" /S
    is_installed 0.9 "KORG PA80 Programs"
    start "$link"
    await_start
    changing press Down # English
    press Return
    wait_until "the question about devices" has_focus "Velluto v 1.1"
    picture first-start
    press Return
    await_window "Velluto v 1.1 - Velluto"
    close_program
    [ "$(cat "$own/Velluto-UserGuide.txt")" = "The older guide" ] || fail "the older guide is not in $own"
    echo "The user's own" >"$own/Velluto-pcg.txt"
    echo "The user's notes" >"$own/notes-of-mine.txt"
}

files_by_type() {
    mkdir "$documents"
    cp data/samples/Full-64.pcg data/samples/Full-8.prf "$documents"
    know_types
    start "$documents/Full-64.pcg"
    await_start
    press Return # no devices
    await_window "Velluto v 1.1 - Velluto"
    picture file-by-type
    cmp "$own/Velluto-UserGuide.txt" "$installed/data/Velluto-UserGuide.txt" || fail "the guide has not followed the new version"
    [ "$(cat "$own/Velluto-pcg.txt")" = "The user's own" ] || fail "what the user had changed was written over"
    take "$stage/one.ppm"
    start "$documents/Full-8.prf"
    wait_until "the second file in the same program" screen_differs "$stage/one.ppm"
    [ "$(program_process)" = "$program_pid" ] || fail "another program has opened the second file"
    picture second-file
}

# While it runs nothing is written over.
update_meanwhile() {
    local status=0
    in_wine "$setup" /S || status=$?
    [ "$status" -eq 3 ] || fail "the setup wrote over a program that runs: $status"
    close_program
}

# pages LANGUAGE TITLE: through the setup by its keys; it starts the program at the end.
pages() {
    local language=$1 title=$2
    ("${our_own[@]}" "${speaking[@]}" wine "$setup" >>"$wine_log" 2>&1) &
    started_pids+=($!)
    await_window "$title"
    picture "$language"
    changing press Return
    picture "$language-folder"
    changing press Return
    wait_until "the end of the setup in $language" knows_version "$version"
    settle
    picture "$language-end"
    press Return
    await_start
    press Return # no devices
    await_window "Velluto v 1.1 - Velluto"
    close_program
    [ ! -e "$installed/old.dll" ] || fail "a file of the older version stays"
}

# An update into a folder of the user's own choice: the older version goes from where it was, or nothing is changed at all.
other_folder() {
    local usual=$installed other=$user_files/Synths/Velluto status=0 # no blanks, round which Wine puts marks that NSIS does not know here
    must "$stage/older.exe" /S
    mv "$installed/uninstall.exe" "$stage/uninstall.exe"
    echo "no program" >"$installed/uninstall.exe"
    in_wine "$setup" /S "/D=$(drive_path "$other")" || status=$?
    [ "$status" -eq 4 ] || fail "the setup went on beside an older version that cannot be taken off: $status"
    is_installed 0.9 "KORG PA80 Programs"
    mv "$stage/uninstall.exe" "$installed"
    must "$setup" /S "/D=$(drive_path "$other")"
    [ ! -e "$usual" ] || fail "the older version stays in its folder"
    installed=$other
    is_installed "$version" "KORG PA80 Programs"
    must "$setup" /S # it knows where
    is_installed "$version" "KORG PA80 Programs"
    [ ! -e "$usual" ] || fail "an update without a word has gone to the usual folder"
    take_off
    rmdir "${other%/*}"
    installed=$usual
}

packaging/windows/build.sh --product
set_wine setup "${1-$out/pictures}"
installed=$user_files/AppData/Local/Programs/Velluto
own=$user_files/AppData/Roaming/Velluto
documents="$user_files/Files of mine"
link="$user_files/AppData/Roaming/Microsoft/Windows/Start Menu/Programs/Velluto.lnk"

make_keys
user_side >"$stage/before"
older_version
pages english "Velluto Setup"
is_installed "$version" "KORG PA80 Programs"
files_by_type
update_meanwhile
take_off
other_folder
speak_italian
must "$stage/older.exe" /S
is_installed 0.9 "Program KORG PA80"
must "$setup" /S
is_installed "$version" "Program KORG PA80"
[ ! -e "$installed/old.dll" ] || fail "a file of the older version stays"
take_off
pages italian "Installazione di Velluto"
is_installed "$version" "Program KORG PA80"
take_off
rm -r "$documents"
user_side | grep -v "^${own#"$WINEPREFIX/drive_c/"}\(/\|$\)" | diff "$stage/before" - || fail "more than the user's files stays"
say "Installed, updated, opened by type and taken off; the user's $(wc -l <"$stage/own") files stay. Pictures in $pictures"
