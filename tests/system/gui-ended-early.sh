#!/usr/bin/env bash
# The system asks the program to end while the questions of a first start are up: it ends, rather than going on when they
# have gone.
#
#     gui-ended-early.sh PROGRAM INSTRUMENT PICTURES
set -euo pipefail
# shellcheck source=tests/system/gui-lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/gui-lib.sh"

set_stage ended-early "$(realpath "$3")" # without a server there are no ports at all, and the start has something to say
start_program "$(realpath "$1")"
await_window "Velluto v 1.1"
changing press Down
take "$stage/language.ppm"
press Return
wait_until "the words about the missing input" screen_differs "$stage/language.ppm"
settle
kill -TERM "$program_pid"
await_end
[ "$(stat -c %s "$stage/home/Velluto.ini")" -eq 40000 ] || fail "the language chosen has not been kept"
say "ended while a question was up"
