#!/usr/bin/env bash
# The program as it is installed, started by its launcher from another folder with a file to open: it stands in its user's own
# folder, with what ships put there and what the user has left alone, and the file is in a window.
#
#     installed.sh BUILD INSTRUMENT PICTURES
set -euo pipefail
# shellcheck source=tests/system/gui-lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/gui-lib.sh"

begin installed "$@" # with an instrument, so that the start has nothing to say about missing ports
cmake --install "$program" --prefix "$stage/usr" >"$stage/install.log"
for file in bin/velluto bin/velluto-tool libexec/velluto/velluto share/velluto/user-folder.sh share/applications/velluto.desktop \
    share/icons/hicolor/scalable/apps/velluto.svg share/mime/packages/velluto.xml share/man/man1/velluto.1 \
    share/man/man1/velluto-tool.1 share/doc/velluto/copyright; do
    [ -s "$stage/usr/$file" ] || fail "$file is not installed"
done

export HOME=$stage/user
unset XDG_DATA_HOME
own=$HOME/.local/share/velluto
mkdir -p "$own" "$stage/elsewhere"
printf 'mine' >"$own/Velluto-sty.txt"
cp "$shipped/samples/Full-64.pcg" "$stage/elsewhere/My sounds.pcg"

(cd "$stage/elsewhere" && exec "$stage/usr/bin/velluto" "My sounds.pcg") >"$stage/program.log" 2>&1 &
program_pid=$!
started_pids+=("$program_pid")
await_window "Velluto v 1.1"
changing press Down
press Return
await_window "Velluto v 1.1 - Velluto"
leave_program

[ "$(cat "$own/Velluto-sty.txt")" = mine ] || fail "a file of the user's has been written over"
diff -r --exclude=Velluto.ini --exclude=Velluto-sty.txt "$shipped" "$own" || fail "what ships is not in the user's folder"
[ "$(stat -c %s "$own/Velluto.ini")" -eq 40000 ] || fail "the settings are not in the user's folder"
tr -d '\0' <"$own/Velluto.ini" | grep -qa "$stage/elsewhere/My sounds.pcg" || fail "the file named was not opened"
say "installed, seeded, and the file opened"
