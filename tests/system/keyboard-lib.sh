# Hands for the on-screen keyboard on a virtual display, and what it is heard to send. Sourced, after gui-lib.sh.
# shellcheck shell=bash disable=SC2034,SC2154

known=0 # messages that have been looked at

# expect WHAT MESSAGE...: exactly these have come since the last look, each as "90 24 40".
expect() {
    local what=$1 want
    shift
    want=$(printf '%s\n' "$@")
    wait_until "$what" heard_lines $((known + $#))
    [ "$(heard | tail -n +$((known + 1)))" = "$want" ] || fail "$what: heard $(heard | tail -n +$((known + 1)) | tr '\n' ',')"
    known=$((known + $#))
}

# The sliders as the settings have them at first: a value other than 0 goes out twice, and the velocities send the pan again.
opening=("B0 07 64" "B0 07 64" "B0 0A 40" "B0 0A 40" "B0 0A 40" "B0 0A 40" "B0 0A 40" "B0 0A 40" "B0 49 00" "B0 48 00" "E0 7F 40"
    "E0 7F 40" "B0 01 00" "B0 02 00" "B0 5B 00" "B0 5D 00")

# Where the piano is: what changes as the cursor moves from its first key to its last. The keyboard is in the piano. Sets
# piano_left, piano_top, piano_width and piano_height.
find_piano() {
    changing press Home
    cp "$stage/now.ppm" "$stage/first.ppm"
    changing press End
    read -r piano_left piano_top piano_width piano_height < <(changed_box "$stage/first.ppm" "$stage/now.ppm")
    [ "$((piano_width > 300 && piano_height > 60))" -eq 1 ] ||
        fail "no piano seen at $piano_left $piano_top $piano_width $piano_height"
}

# point RIGHT DOWN: the pointer onto that place of the piano, and until the program knows it: of several moves that wait for a busy
# program it is told the last one.
point() {
    xdotool mousemove $((piano_left + $1)) $((piano_top + $2))
    settle
}

# over_white NUMBER: the pointer onto a white key (from 0), below the black ones.
over_white() {
    point $(((2 * $1 + 1) * piano_width / 72)) $((piano_height * 5 / 6))
}
