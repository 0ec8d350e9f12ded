#!/usr/bin/env bash
# The system asks the program to end, by each of its signals: at the language question it is the start that ends, as if that had not been
# answered; at a later word of the start the program ends, rather than going on when that has gone; with a changed file it asks, and
# ends once the answer lets it.
#
#     gui-ended-early.sh PROGRAM INSTRUMENT PICTURES
set -euo pipefail
# shellcheck source=tests/system/gui-lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/gui-lib.sh"

program=$(realpath "$1")
set_stage ended-early "$(realpath "$3")" # without a server there are no ports at all, and the start has something to say
seed "$shipped" "$stage/home"
start_program "$program"
await_window "Velluto v 1.1"
kill -HUP "$program_pid"
await_end
[ ! -e "$stage/home/Velluto.ini" ] || fail "a question that was not answered has left settings"

choose_english "$program"
take "$stage/language.ppm"
press Return
wait_until "the words about the missing input" screen_differs "$stage/language.ppm"
settle
kill -TERM "$program_pid"
await_end
[ "$(stat -c %s "$stage/home/Velluto.ini")" -eq 40000 ] || fail "the language chosen has not been kept"

start_program "$program"
await_window "Velluto v 1.1" # the same words
press Return
await_window "Velluto v 1.1 - Velluto"
cp "$shipped/samples/Full-64.pcg" "$stage/home/Stage.pcg"
open_file Stage.pcg
changing press Home
changing press ctrl+x
take "$stage/cut.ppm"
kill -INT "$program_pid"
wait_until "the question about the file" screen_differs "$stage/cut.ppm"
settle
changing press Escape # the program stays
kill -0 "$program_pid" || fail "the program has ended without an answer"
cmp -s "$shipped/samples/Full-64.pcg" "$stage/home/Stage.pcg" || fail "the file has been written without an answer"
take "$stage/cut.ppm"
kill -INT "$program_pid"
wait_until "the question once more" screen_differs "$stage/cut.ppm"
settle
press Return # yes
await_end
! cmp -s "$shipped/samples/Full-64.pcg" "$stage/home/Stage.pcg" || fail "the changed file has not been written"
say "ended while questions were up, and after one about a file"
