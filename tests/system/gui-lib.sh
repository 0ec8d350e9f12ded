# What the tests of the program on a virtual display share: a stage with a display, a MIDI server and an instrument, waits
# that have an end, and looks at the screen. Sourced; the caller has set -euo pipefail.
# shellcheck shell=bash disable=SC2034
# shellcheck source=tools/lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/../../tools/lib.sh"

stage=
patience=20 # seconds that any wait may take
screen_width=1024
screen_height=768

fail() {
    complain "FAILED: $*"
    exit 1
}

# wait_until WHAT COMMAND...: until the command succeeds.
wait_until() {
    local what=$1 end=$((SECONDS + patience))
    shift
    until "$@"; do
        [ "$SECONDS" -lt "$end" ] || fail "waited $patience s for $what"
        sleep 0.05
    done
}

free_display() {
    local number
    for number in 81 82 83 84 85 86 87 88 89; do
        if [ ! -e "/tmp/.X11-unix/X$number" ] && [ ! -e "/tmp/.X$number-lock" ]; then
            say "$number"
            return 0
        fi
    done
    fail "no display number is free"
}

# The display's cookie once more under this machine's name: Python's X library knows no cookie that is good for any display.
add_named_cookie() {
    local host number=${DISPLAY#:}
    host=$(hostname)
    {
        printf '\001\000\000%b%s\000%b%s' "\\x$(printf %02x ${#host})" "$host" "\\x$(printf %02x ${#number})" "$number"
        printf '\000\022MIT-MAGIC-COOKIE-1\000\020'
        tail -c 16 "$XAUTHORITY"
    } >"$stage/named"
    cat "$stage/named" >>"$XAUTHORITY"
}

# Where the test ends, however it does: a picture of the screen if it failed, nothing left running, nothing left behind.
# shellcheck disable=SC2317 # a trap reaches it
leave_stage() {
    local status=$?
    trap - EXIT INT TERM HUP
    if [ "$status" -ne 0 ] && [ -n "${DISPLAY-}" ]; then
        import -window root "$pictures/failed-$test_name.png" && complain "The screen is in $pictures/failed-$test_name.png"
        [ ! -s "$stage/program.log" ] || cat "$stage/program.log" >&2
    fi
    end_processes "${started_pids[@]}"
    rm -rf --one-file-system "$stage" || true
    exit "$status"
}

# set_stage NAME PICTURES: a folder for all of it, a display, and the folder that the program will call its own.
set_stage() {
    test_name=$1 pictures=$2
    stage=$(mktemp -d)
    trap leave_stage EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM
    trap 'exit 129' HUP
    unset DISPLAY WAYLAND_DISPLAY XAUTHORITY QT_QPA_PLATFORM QT_SCALE_FACTOR
    mkdir -m 700 "$stage/run"
    mkdir "$stage/home" "$stage/config"
    export XDG_RUNTIME_DIR=$stage/run XDG_CONFIG_HOME=$stage/config LC_ALL=C.UTF-8
    local number
    number=$(free_display)
    start_display "$stage" "${screen_width}x$screen_height" "$number"
    wait_until "the window manager" window_manager_is_up
}

# shellcheck disable=SC2317 # wait_until reaches it
window_manager_is_up() {
    xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'
}

# start_jack [FRAMES]: a MIDI server of its own, with no sound behind it, in periods of so many frames; long ones, since what a
# client sends too late for its period is lost, and the machine may be busy. Always of one of the same few names: JACK keeps a list
# of eight servers for the whole machine, and takes a killed one off it only for another of its name.
start_jack() {
    export JACK_NO_AUDIO_RESERVATION=1 JACK_NO_START_SERVER=1
    local number
    for number in 1 2 3; do
        export JACK_DEFAULT_SERVER=velluto-gui-$number
        [ "$(jack_wait -c 2>/dev/null | tail -n 1)" != running ] || continue
        break
    done
    jackd -n "$JACK_DEFAULT_SERVER" --no-realtime -d dummy -r 48000 -p "${1-1024}" >"$stage/jackd.log" 2>&1 &
    started_pids+=($!)
    jack_wait -w -t "$patience" >/dev/null 2>&1 || fail "jackd did not start: $(tail -n 5 "$stage/jackd.log")"
}

# start_instrument PROGRAM NAME [--times]: a client that writes what it hears into $stage/heard.
start_instrument() {
    mkfifo "$stage/instrument"
    "$@" <>"$stage/instrument" >"$stage/heard" 2>"$stage/instrument.log" &
    started_pids+=($!)
    wait_until "the instrument" grep -qsx ready "$stage/heard"
}

# is_connected PORT: somebody plays into it.
is_connected() {
    [ "$(jack_lsp -c "$1" 2>/dev/null | wc -l)" -ge 2 ]
}

heard() {
    sed 1d "$stage/heard"
}

heard_lines() {
    [ "$(heard | wc -l)" -ge "$1" ]
}

# How many notes were begun and not ended, over all that was heard.
still_sounding() {
    heard | awk '
        $1 ~ /^9/ && $3 != "00" { on[substr($1, 2), $2] = 1; next }
        $1 ~ /^[89]/ { delete on[substr($1, 2), $2] }
        $1 ~ /^B/ && $2 == "7B" { for (key in on) if (index(key, substr($1, 2)) == 1) delete on[key] }
        END { for (key in on) count++; print count + 0 }'
}

# start_program PROGRAM: in its own folder; its process is program_pid.
start_program() {
    (cd "$stage/home" && exec "$1") >"$stage/program.log" 2>&1 &
    program_pid=$!
    started_pids+=("$program_pid")
}

program_has_gone() {
    ! kill -0 "$program_pid" 2>/dev/null
}

has_focus() {
    [ "$(xdotool getactivewindow getwindowname 2>/dev/null)" = "$1" ]
}

# The window with this title has the keyboard.
await_window() {
    wait_until "the window \"$1\"" has_focus "$1"
    settle
}

press() {
    local key
    for key in "$@"; do
        xdotool key --clearmodifiers "$key"
    done
}

click() {
    xdotool mousemove "$1" "$2" click 1
}

# drag FROM-X FROM-Y TO-X TO-Y
drag() {
    xdotool mousemove "$1" "$2" mousedown 1
    xdotool mousemove $((($1 + $3) / 2)) $((($2 + $4) / 2)) mousemove "$3" "$4"
    xdotool mouseup 1
}

# The screen without its last line, where the clock is.
take() {
    import -window root -crop "${screen_width}x$((screen_height - 40))+0+0" +repage -depth 8 "$1"
}

differ() {
    ! cmp -s "$1" "$2"
}

# Until the screen stands still: two looks in a row are the same.
settle() {
    local end=$((SECONDS + patience))
    take "$stage/now.ppm"
    while true; do
        mv "$stage/now.ppm" "$stage/before.ppm"
        sleep 0.1
        take "$stage/now.ppm"
        differ "$stage/before.ppm" "$stage/now.ppm" || return 0
        [ "$SECONDS" -lt "$end" ] || fail "the screen does not stand still"
    done
}

screen_differs() {
    take "$stage/now.ppm"
    differ "$1" "$stage/now.ppm"
}

# changing COMMAND...: runs it and waits until the screen has changed and stands still again.
changing() {
    take "$stage/old.ppm"
    "$@"
    wait_until "a change on the screen after: $*" screen_differs "$stage/old.ppm"
    settle
}

# changed_box FROM TO: the smallest box around what differs, as four numbers: left top width height.
changed_box() {
    convert "$1" "$2" -compose difference -composite -colorspace gray -threshold 1% -format '%@\n' info: |
        sed -E 's/([0-9]+)x([0-9]+)\+([0-9]+)\+([0-9]+)/\3 \4 \1 \2/'
}

# The steps of a new user.

# From the language question to the frame, in English.
start_in_english() {
    start_program "$1"
    await_window "Velluto v 1.1"
    changing press Down # from Italiano to English
    press Return
    await_window "Velluto v 1.1 - Velluto"
}

# open_file PATH: by the File menu's shortcut and the dialog.
open_file() {
    take "$stage/empty.ppm"
    press ctrl+a
    await_window "Velluto v 1.1- Open File"
    xdotool type --delay 10 "$1"
    press Return
    await_window "Velluto v 1.1 - Velluto"
    wait_until "the file's window" screen_differs "$stage/empty.ppm"
    settle
}

# Where the fifth row of the list is: what changes as the selection moves on from the fourth. The keyboard is in the list of
# a file's window, from which nothing is sent. Sets row_x and row_y.
find_fifth_row() {
    local left top width height
    changing press Home
    for _ in 2 3 4; do
        changing press Down
    done
    cp "$stage/now.ppm" "$stage/fourth.ppm"
    changing press Down
    read -r left top width height < <(changed_box "$stage/fourth.ppm" "$stage/now.ppm")
    [ "$((width > 100 && height > 20))" -eq 1 ] || fail "no rows seen at $left $top $width $height"
    row_x=$((left + width / 2)) row_y=$((top + height * 3 / 4))
}

# press_user NUMBER...: presses the buttons "User 1", "User 2" and so on of a file's window, whose list has the keyboard. The
# first two of them are where the focus moves to.
press_user() {
    local left top width height number
    changing press Tab
    cp "$stage/now.ppm" "$stage/user1.ppm"
    changing press Tab
    read -r left top width height < <(changed_box "$stage/user1.ppm" "$stage/now.ppm")
    [ "$width" -gt 100 ] || fail "no buttons seen at $left $top $width $height"
    for number in "$@"; do
        changing click $((left + width / 5 + (number - 1) * width / 2)) $((top + height / 2))
    done
}

# Chooses the last MIDI output, which is the instrument: the built-in synthesizer and the machine's own ports come before it.
choose_last_output() {
    changing press alt+p
    changing press Down
    changing press Right
    changing press Up # from the first round to the last
    press Return
    wait_until "the way to $1" is_connected "$1"
    settle
}
