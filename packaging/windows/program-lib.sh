# shellcheck shell=bash disable=SC2034,SC2154
# Hands for velluto.exe under Wine, over a winmm.dll on paper (tests/winmm) that writes down what it is sent. Sourced after wine-lib.sh.

# set_program ZIP: unpacks it, with that winmm.dll beside it and one output. Sets program_folder and home, where the user's files will be.
set_program() {
    unzip -q "$1" -d "$stage"
    program_folder=$(realpath "$stage"/Velluto-*)
    home=$program_folder/files
    cp build/windows/tests/winmm/winmm.dll "$program_folder"
    echo "out Instrument" >"$stage/devices"
    STANDIN_WINMM=$(windows_path "$stage/devices")
    STANDIN_WINMM_LOG=$(windows_path "$stage/heard")
    export STANDIN_WINMM STANDIN_WINMM_LOG
}

# start_in_wine [FILE...]
start_in_wine() {
    (cd "$stage" && exec "${our_own[@]}" wine "$program_folder/velluto.exe" "$@") >"$stage/program.log" 2>&1 &
    program_pid=$!
    started_pids+=("$program_pid")
}

# start_again [FILE...]: with settings that are there.
start_again() {
    start_in_wine "$@"
    await_window "Velluto v 1.1 - Velluto"
}

# The messages that the instrument was sent, each as "90 24 40". In place of the one that knows a JACK client's log.
heard() {
    sed -nE 's/^midiOutShortMsg 0 (..)(..)(..) = 0\r*$/\3 \2 \1/; s/^([CD]. ..) ..$/\1/; /^[89A-F]. ../p' "$stage/heard" 2>/dev/null
}

is_open() {
    grep -qs '^midiOutOpen 0 .* = 0' "$stage/heard"
}

no_window() {
    ! xdotool search --name "^$1\$" >/dev/null 2>&1
}

# choose_file TITLE NAME: in the system's own dialog, whose name field has the keyboard.
choose_file() {
    await_window "$1"
    xdotool key --clearmodifiers ctrl+a
    xdotool type --delay 5 "$2"
    press Return
    wait_until "the end of the dialog \"$1\"" no_window "$1"
    come_back
}

# answer TITLE KEY: a question of the program's.
answer() {
    await_window "$1"
    press "$2"
    come_back
}

same_bytes() {
    cmp -s "$1" "$2"
}

# linux FOLDER: what the driver writes there, in the stage, and in FOLDER.log says, after the commands that come in. It begins with what ships.
linux() {
    local driver=$PWD/build/dev/velluto-driver
    mkdir "$stage/$1"
    seed data "$stage/$1"
    (cd "$stage/$1" && "$driver" >"$stage/$1.log")
}

# The settings are 80 records of 500 bytes, and those of Linux but for paths, which begin their records, and for the heights of files'
# windows: of these the driver, which has no screen, has its own measure of a line.
compare_settings() {
    python3 - "$home/Velluto.ini" "$stage/linux/Velluto.ini" "$(windows_path "$home")" "$stage/linux" <<'END' || fail "the settings are others than on Linux"
import sys
windows, linux = (open(path, "rb").read() for path in sys.argv[1:3])
if len(windows) != 40000:
    sys.exit(f"{len(windows)} bytes of settings")
home, linux_home = (path.encode() for path in sys.argv[3:5])
for number in range(80):
    one, other = (settings[number * 500:(number + 1) * 500] for settings in (windows, linux))
    if one == other:
        continue
    size = 500 if number in (77, 79) else 234  # bytes of the field, of which blanks make up the rest; those two are the player's
    path, other_path = one[:size].rstrip(b" "), other[:size].rstrip(b" ")
    rest, other_rest = (record[size:240] + record[242:248] + record[250:] if size == 234 else b"" for record in (one, other))
    if not path.startswith(home) or linux_home + path[len(home):].replace(b"\\", b"/") != other_path or rest != other_rest:
        sys.exit(f"record {number + 1}:\n{one}\n{other}")
END
}
