# What the tests of the program on a virtual display share: a stage with a display, a MIDI server and an instrument, waits
# that have an end, and looks at the screen. Sourced; the caller has set -euo pipefail.
# shellcheck shell=bash disable=SC2034,SC2317
# shellcheck source=tools/lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/../../tools/lib.sh"

shipped=$(realpath "$(dirname "${BASH_SOURCE[0]}")/../../data")
stage=
patience=40 # seconds that any wait may take
lane_patience=250 # where others test too
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
        sleep 0.02
    done
}

# JACK's clients meet their servers in /dev/shm, under the client's name alone: two that are called alike, on two servers, may get
# each other's server. So each test has a /dev/shm of its own (as in JackServer.cpp), where the machine lets it: it is started once
# more, and whoever is not root is root there for the kernel alone, and can install nothing. A caller that has left the folder in
# which it was started has set own_script to its whole path.
if [ -z "${own_shm-}" ]; then
    lane_user=${lane_user-$UID} # who root is there
    apart=(unshare --mount --ipc)
    [ "$UID" -eq 0 ] || apart+=(--user --map-root-user)
    if "${apart[@]}" mount -t tmpfs tmpfs /dev/shm 2>/dev/null; then
        # shellcheck disable=SC2016 # those are the inner shell's
        own_shm=true lane_user=$lane_user exec "${apart[@]}" bash -c 'mount -t tmpfs tmpfs /dev/shm && exec "$0" "$@"' \
            "${own_script-$(realpath "$0")}" "$@"
    fi
    own_shm=false
fi

# Ours until the end of the test: one of a few lanes, each with a name for a MIDI server and a display number. A single one where
# all tests meet in one /dev/shm.
take_lane() {
    local lanes=(1)
    ! $own_shm || lanes=(1 2 3 4)
    for lane in "${lanes[@]}"; do
        exec {lane_lock}>"/tmp/velluto-test-$lane_user-$lane.lock"
        ! flock --nonblock "$lane_lock" || return 0
        exec {lane_lock}>&-
    done
    return 1
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

# A picture of the screen, and the last words of all that ran.
tell_failure() {
    import -window root "$pictures/failed-$test_name.png" && complain "The screen is in $pictures/failed-$test_name.png"
    [ ! -s "$stage/program.log" ] || cat "$stage/program.log" >&2
    tail -n 5 "$stage/heard" "$stage/instrument.log" "$stage/jackd.log" >&2 2>/dev/null || true
}

# Where the test ends, however it does: nothing left running, nothing left behind.
leave_stage() {
    local status=$?
    trap - EXIT INT TERM HUP
    [ "$status" -eq 0 ] || [ -z "${DISPLAY-}" ] || tell_failure
    # Asked to end, a program whose test has failed might stand before a question for ever.
    [ -z "${program_pid-}" ] || kill -KILL "$program_pid" 2>/dev/null || true
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
    patience=$lane_patience wait_until "a MIDI server's name that nobody else tests with" take_lane
    export JACK_DEFAULT_SERVER=velluto-$lane JACK_NO_AUDIO_RESERVATION=1 JACK_NO_START_SERVER=1
    # Of the displays' numbers, which all users share, each has four.
    start_display "$stage" "${screen_width}x$screen_height" "$((90 + 4 * (lane_user % 10000) + lane))" -fbdir "$stage"
    wait_until "the window manager" window_manager_is_up
    measure_screen
}

window_manager_is_up() {
    xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'
}

# begin NAME PROGRAM INSTRUMENT PICTURES: the stage of a test, with a server, an instrument that hears, and what ships with the
# program in its folder.
begin() {
    begin_without_instrument "$@"
    start_instrument "$3" Instrument
}

# The same, with an instrument that has not been switched on.
begin_without_instrument() {
    program=$(realpath "$2")
    set_stage "$1" "$(realpath "$4")"
    start_jack
    seed "$shipped" "$stage/home"
    # The instrument's number, the last of all: the machine's own ports come before it.
    echo 'out 6 * Instrument:midi_in' >"$stage/home/Velluto-devices.txt"
}

# start_jack [FRAMES]: a MIDI server with no sound behind it. It waits some seconds for a client that is late, since what has not been passed on
# by the end of a period is lost, and the machine may be busy. For as long it stands still where a client is killed.
start_jack() {
    "${our_own[@]}" jackd -n "$JACK_DEFAULT_SERVER" --no-realtime -S -t 500 -d dummy -r 48000 -p "${1-256}" >"$stage/jackd.log" 2>&1 &
    server_pid=$!
    started_pids+=("$server_pid")
    wait_until "the MIDI server" jack_runs
}

jack_runs() {
    [ "$(jack_wait -c 2>/dev/null | tail -n 1)" = running ]
}

# start_instrument PROGRAM NAME [--times]: a client that writes what it hears into $stage/heard.
start_instrument() {
    [ -p "$stage/instrument" ] || mkfifo "$stage/instrument"
    "${our_own[@]}" "$@" <>"$stage/instrument" >"$stage/heard" 2>"$stage/instrument.log" &
    instrument_pid=$!
    started_pids+=("$instrument_pid")
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

# last_is MESSAGE: the last that was heard.
last_is() {
    [ "$(heard | tail -n 1)" = "$1" ]
}

# How many notes were begun and not ended, over all that was heard.
still_sounding() {
    heard | awk '
        $1 ~ /^9/ && $3 != "00" { on[substr($1, 2), $2] = 1; next }
        $1 ~ /^[89]/ { delete on[substr($1, 2), $2] }
        $1 ~ /^B/ && $2 == "7B" { for (key in on) if (index(key, substr($1, 2)) == 1) delete on[key] }
        END { for (key in on) count++; print count + 0 }'
}

# start_program PROGRAM [FILE...]: in its own folder; its process is program_pid.
start_program() {
    (cd "$stage/home" && exec "${our_own[@]}" "$@") >"$stage/program.log" 2>&1 &
    program_pid=$!
    started_pids+=("$program_pid")
}

program_has_gone() {
    ! kill -0 "$program_pid" 2>/dev/null
}

# leave_program: by its File menu.
leave_program() {
    changing press alt+f
    press x
    await_end
}

await_end() {
    local status=0
    wait_until "the end of the program" program_has_gone
    wait "$program_pid" || status=$?
    program_pid=
    [ "$status" -eq 0 ] || fail "the program ended with $status"
    [ ! -s "$stage/program.log" ] || fail "the program had something to say"
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
        xdotool key --clearmodifiers --delay 0 "$key"
    done
}

# click_here [BUTTON]: without the tenth of a second that xdotool's own click takes.
click_here() {
    xdotool mousedown "${1-1}" mouseup "${1-1}"
}

# click X Y: once no tool tip is in the way any more.
click() {
    xdotool mousemove "$1" "$2"
    settle
    click_here
}

# drag FROM-X FROM-Y TO-X TO-Y
drag() {
    xdotool mousemove "$1" "$2" mousedown 1
    xdotool mousemove $((($1 + $3) / 2)) $((($2 + $4) / 2)) mousemove "$3" "$4"
    xdotool mouseup 1
}

# What lies on the screen is a file, after a head of so many bytes, and each take of it begins with that head.
measure_screen() {
    local head colours line
    read -r head colours line < <(od -A n -t u4 --endian=big "$stage/Xvfb_screen0" -N 100 -w100 | awk '{ print $1, $20, $13 }')
    screen_head=$((head + 12 * colours))
    screen_bytes=$((screen_head + line * (screen_height - 40)))
}

# The screen without its last line, where the clock is.
take() {
    head -c "$screen_bytes" "$stage/Xvfb_screen0" >"$1"
}

# look_at TAKEN ARGUMENT...: as ImageMagick sees it.
look_at() {
    local taken=$1
    shift
    convert -size "${screen_width}x$((screen_height - 40))+$screen_head" -depth 8 "bgra:$taken" -alpha off "$@"
}

differ() {
    ! cmp -s "$1" "$2"
}

# Until the display, its window manager and the program have done all that there was to do: they sleep, and have not run between
# two looks. The waking of a sleeper comes with the message to it, so that a busy machine hides nothing from these looks.
settle() {
    wait_until "a program that sleeps" is_at_rest
}

is_at_rest() {
    local before now
    before=$(turns) || return 1
    sleep 0.02
    now=$(turns) || return 1
    [ "$before" = "$now" ]
}

# How often each thread that a key or a click goes through has had its turn; false where one of them has or wants it now.
turns() {
    local pid task name state turns
    for pid in "${display_pids[@]}" "${program_pid-}"; do
        for task in "/proc/$pid/task"/*; do
            { read -r name <"$task/comm"; } 2>/dev/null || continue # it has gone
            [ "${task##*/}" = "$pid" ] || [ "$name" = QXcbEventQueue ] || continue
            read -r _ _ state _ <"$task/stat" || continue
            [ "$state" = S ] || return 1
            read -r _ _ turns <"$task/schedstat" || continue
            printf '%s ' "$turns"
        done
    done 2>/dev/null
}

screen_differs() {
    take "$stage/now.ppm"
    differ "$1" "$stage/now.ppm"
}

# changing COMMAND...: runs it and waits until the screen has changed and stands still again, as it is in $stage/now.ppm then. The
# first look that differs may have met half a change.
changing() {
    take "$stage/old.ppm"
    "$@"
    wait_until "a change on the screen after: $*" screen_differs "$stage/old.ppm"
    settle
    take "$stage/now.ppm"
}

# changed_box FROM TO: the smallest box around what differs, as four numbers: left top width height.
changed_box() {
    look_at "$2" "$stage/second.png"
    look_at "$1" "$stage/second.png" -compose difference -composite -colorspace gray -threshold 1% -format '%@\n' info: |
        sed -E 's/([0-9]+)x([0-9]+)\+([0-9]+)\+([0-9]+)/\3 \4 \1 \2/'
}

# The steps of a new user.

# Up to the language question, with English chosen.
choose_english() {
    start_program "$1"
    await_window "Velluto v 1.1"
    changing press Down # from Italiano
}

# From the language question to the frame, in English.
start_in_english() {
    choose_english "$1"
    press Return
    await_window "Velluto v 1.1 - Velluto"
}

# open_file PATH: by the File menu's shortcut and the dialog.
open_file() {
    take "$stage/empty.ppm"
    press ctrl+a
    await_window "Velluto v 1.1- Open File"
    xdotool type --delay 2 "$1"
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

# Clicks the last MIDI output in the menu: one that is on goes off.
click_last_output() {
    changing press alt+p
    changing press Down
    changing press Right
    changing press Up # from the first round to the last
    press Return
}

# Chooses the last MIDI output, which is the instrument.
choose_last_output() {
    click_last_output
    wait_until "the way to $1" is_connected "$1"
    settle
}

# The keyboard's window, with the keys on the first one of its piano.
open_piano() {
    changing press alt+v
    changing press k
    changing press Home
}
