#!/usr/bin/env bash
# Arguments that are no files, handed to the program that runs: each is told at once, and the next one is taken. A name of any bytes
# opens.
#
#     gui-no-files.sh PROGRAM INSTRUMENT PICTURES
set -euo pipefail
# shellcheck source=tests/system/gui-lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/gui-lib.sh"

# told NAME: a box says something about the file of that name.
told() {
    (cd "$stage/home" && timeout 20 "$program" "things/$1") || fail "the second start did not hand $1 over"
    await_window "Opening $1"
    press Return
    await_window "Velluto v 1.1 - Velluto"
}

begin no-files "$@"
start_in_english "$program"
mkdir "$stage/home/things"
cd "$stage/home/things"
mkfifo pipe.pcg pipe.txt
ln -s /dev/zero device.sty
mkdir folder.prf
ln -s loop.pcg loop.pcg
ln -s /nowhere/at/all dangling.pcg
truncate -s 4G long.pcg
cp "$shipped/samples/Full-64.pcg" $'caf\xe9.pcg'

for thing in pipe.pcg pipe.txt device.sty folder.prf loop.pcg dangling.pcg long.pcg; do
    told "$thing"
done

# A name need not be text: it opens, handed over and as the argument of a start.
take "$stage/empty.ppm"
(cd "$stage/home" && timeout 20 "$program" $'things/caf\xe9.pcg')
wait_until "the file's window" screen_differs "$stage/empty.ppm"
settle
leave_program
start_program "$program" $'things/caf\xe9.pcg'
await_window "Velluto v 1.1 - Velluto"
wait_until "the file's window" screen_differs "$stage/empty.ppm"
leave_program
say "told, one after the other"
