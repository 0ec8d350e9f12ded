# shellcheck shell=bash disable=SC2034,SC2154
# velluto.exe with devices that refuse, go, come and receive. Sourced after program-lib.sh and tests/system/keyboard-lib.sh.

# machine LINE...: what happens to the devices from the program's next call on (tests/winmm/Machine.h).
machine() {
    printf '%s\n' "$@" >>"$stage/devices"
}

# forget: what was asked of the devices so far.
forget() {
    : >"$stage/heard"
    known=0
}

# asked LINE: the devices were asked this, with this answer.
asked() {
    tr -d '\r' <"$stage/heard" | grep -qx "$1"
}

await_asked() {
    wait_until "$1" asked "$1"
}

# preference DOWN [NUMBER]: the entry so far down in the Preferences menu, or its own entry of that number, from 0.
preference() {
    local step
    changing press alt+p
    for ((step = 0; step < $1; step++)); do
        changing press Down
    done
    if [ $# -gt 1 ]; then
        changing press Right
        for ((step = 0; step < $2; step++)); do
            changing press Down
        done
    fi
    press Return
}
output() { preference 1 "$1"; }
input() { preference 2 "$1"; }
thru() { preference 3; }

# note: a key of the on-screen keyboard, pressed and let go.
note() {
    xdotool key z
}

box_is_read() {
    xdotool key ctrl+c
    xclip -selection clipboard -o 2>/dev/null | tr -d '\r' >"$stage/box"
    [ "$(sed -n '2p;4p' "$stage/box")" = "Velluto v 1.1"$'\n'"$1" ]
}

# told TEXT: a box says so, as one sees who copies it; it is acknowledged.
told() {
    wait_until "a box" has_focus "Velluto v 1.1"
    wait_until "the words: $1" box_is_read "$1"
    say "$1" >>"$stage/boxes"
    press Return
}

# What the program says of the same faults on Linux, a box a line.
linux_boxes() {
    linux faults <<'END'
device out "Instrument"
device in "Keys"
start en
menu mnuDevMIDIOut(0)
menu mnuExit
device set out 0 open=4
start none
menu mnuTastiera
menu mnuDevMIDIOut(0)
device set out 0 open=0
menu mnuDevMIDIOut(0)
device set out 0 open=68 send=68
pointer frmTastiera Key(24) down
pointer frmTastiera Key(24) up
pointer frmTastiera Key(24) down
pointer frmTastiera Key(24) up
menu mnuDevMIDIOut(0)
menu mnuDevMIDIOut(0)
device set out 0 open=0 send=0
menu mnuDevMIDIOut(0)
pointer frmTastiera Key(24) down
pointer frmTastiera Key(24) up
device set in 0 open=4
menu mnuDevMIDIIn(0)
device set in 0 open=68
menu mnuDevMIDIIn(0)
device set in 0 open=0
menu mnuDevMIDIIn(0)
menu mnuMIDIThru
menu mnuMIDIThru
menu mnuDevMIDIIn(0)
boxes
menu mnuExit
END
    python3 - "$stage/faults.log" <<'END'
import json
import sys
for line in open(sys.argv[1], encoding="utf-8"):
    for box in json.loads(line).get("boxes", []):
        print(box["text"])
END
}

# The output, as it was chosen last time, is in use; then it is pulled, and comes back.
output_faults() {
    machine "fail midiOutOpen 4"
    start_in_wine
    told "Output MIDI Device already in use"
    await_window "Velluto v 1.1 - Velluto"
    changing press alt+v
    changing press k
    note
    settle
    output 0 # its mark goes
    settle
    machine "fail midiOutOpen 0"
    forget
    output 0
    await_asked "midiOutOpen 0 0 = 0"

    forget
    machine "pull out 0"
    note
    told "Error accessing MIDI output device (Cod Err: 468)"
    come_back
    note # one box is all
    settle
    has_focus "Velluto v 1.1 - Velluto" || fail "there is more to say about a device that has gone"
    [ "$(grep -c ^midiOutShortMsg "$stage/heard")" -eq 1 ] || fail "a device that has gone was sent more"
    output 0
    told "Error accessing MIDI output device (Cod Err: 800)"
    come_back
    output 0
    told "Error accessing MIDI output device (Cod Err: 668)"
    come_back
    forget
    machine "plug out 0"
    output 0
    await_asked "midiOutOpen 0 0 = 0"
    note
    expect "a note on the device that is back" "90 3C 40" "80 3C 40"
}

# One more output while the program runs.
late_output() {
    machine "out Late"
    forget
    output 1
    await_asked "midiOutClose 0 = 0"
    await_asked "midiOutOpen 1 0 = 0"
    note
    await_asked "midiOutShortMsg 1 403C80 = 0"
    forget
    output 0
    await_asked "midiOutOpen 0 0 = 0"
}

# The input is in use, has gone, opens, and plays the output by Thru: a note that it leaves there ends with the link.
input_faults() {
    machine "fail midiInOpen 4"
    input 0
    told "Input MIDI Device already in use"
    come_back
    machine "fail midiInOpen 68"
    input 0
    told "Error opening MIDI input device (Cod Err: 568)"
    come_back
    machine "fail midiInOpen 0"
    input 0
    await_asked "midiInOpen 0 196608 = 0"
    forget
    thru
    await_asked "midiConnect 0 0 = 0"
    await_asked "midiInStart 0 = 0"
    machine "receive 0 643C90 7"
    thru # the menu asks for the devices, and the input's thread delivers meanwhile
    await_asked "thru 0 643C90"
    await_asked "midiDisconnect 0 0 = 0"
    await_asked "midiOutShortMsg 0 403C80 = 0"
    await_asked "midiInStop 0 = 0"
    input 0
    await_asked "midiInClose 0 = 0"
}

devices_with_faults() {
    local before
    before=$(cat "$stage/devices")
    linux_boxes >"$stage/boxes-on-linux"
    output_faults
    late_output
    input_faults
    leave_program
    printf '%s\n' "$before" >"$stage/devices"
    diff "$stage/boxes-on-linux" "$stage/boxes" || fail "of the same faults Linux says something else"
    say "Devices: in use, pulled, back, late, and Thru; $(wc -l <"$stage/boxes") boxes as on Linux"
}
