#!/usr/bin/env bash
# The program as it is installed, started by its launcher from another folder with a file to open: it stands in its user's own
# folder, with what ships put there and what the user has left alone, and the file is in a window.
#
#     installed.sh BUILD INSTRUMENT PICTURES
set -euo pipefail
# shellcheck source=tests/system/gui-lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/gui-lib.sh"

hand_over() {
    (cd "$stage/elsewhere" && "$stage/usr/bin/velluto" More.prf) || fail "the second start has failed"
}

begin installed "$@" # with an instrument, so that the start has nothing to say about missing ports
cmake --install "$program" --prefix "$stage/usr" >"$stage/install.log"
for file in bin/velluto bin/velluto-tool libexec/velluto/velluto share/velluto/user-folder.sh share/applications/velluto.desktop \
    share/icons/hicolor/scalable/apps/velluto.svg share/mime/packages/velluto.xml share/man/man1/velluto.1 \
    share/icons/hicolor/48x48/apps/velluto.png share/metainfo/io.github.velluto.Velluto.metainfo.xml share/man/man1/velluto-tool.1 share/doc/velluto/copyright; do
    [ -s "$stage/usr/$file" ] || fail "$file is not installed"
done

export HOME=$stage/user
unset XDG_DATA_HOME
own=$HOME/.local/share/velluto

# Questions are answered without a display, and before anything is put anywhere.
said=$(env -u DISPLAY "$stage/usr/bin/velluto" --version)
[[ $said =~ ^velluto\ [0-9] ]] || fail "--version says: $said"
said=$(env -u DISPLAY LC_ALL=it_IT.UTF-8 "$stage/usr/bin/velluto" --help)
[[ $said == uso:* ]] || fail "--help says: $said"
[ ! -e "$HOME" ] || fail "a question has left something behind"

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

# A second start with a file hands it to the program that runs, and is done.
cp "$shipped/samples/Full-8.prf" "$stage/elsewhere/More.prf"
changing hand_over
leave_program

[ "$(cat "$own/Velluto-sty.txt")" = mine ] || fail "a file of the user's has been written over"
diff -r --exclude=Velluto.ini --exclude=Velluto-sty.txt --exclude=Velluto-devices.txt --exclude=.velluto-shipped "$shipped" "$own" || fail "what ships is not in the user's folder"
[ "$(stat -c %s "$own/Velluto.ini")" -eq 40000 ] || fail "the settings are not in the user's folder"
tr -d '\0' <"$own/Velluto.ini" | grep -qa "$stage/elsewhere/My sounds.pcg" || fail "the file named was not opened"
tr -d '\0' <"$own/Velluto.ini" | grep -qa "$stage/elsewhere/More.prf" || fail "the file handed over was not opened"

# An update: what was left alone follows it, what was touched or deleted on purpose stays, what is missing comes back.
new=$stage/usr/share/velluto/data
for file in Velluto-UserGuide.txt Velluto-pcg.txt Velluto-sty.txt; do
    printf 'new\r\n' >>"$new/$file"
done
printf 'mine' >>"$own/Velluto-pcg.txt"
touched=$(sha256sum <"$own/Velluto-pcg.txt")
rm "$own/c-Velluto.cmp" "$own/samples/Single.sty"
seed "$new" "$own"
cmp "$new/Velluto-UserGuide.txt" "$own/Velluto-UserGuide.txt" || fail "the guide has not followed the update"
cmp "$new/samples/Single.sty" "$own/samples/Single.sty" || fail "a sample has not come back"
[ "$(sha256sum <"$own/Velluto-pcg.txt")" = "$touched" ] || fail "a table that was changed has been written over"
[ "$(cat "$own/Velluto-sty.txt")" = mine ] || fail "a table from before the record has been written over"
[ ! -e "$own/c-Velluto.cmp" ] || fail "a compilation that was deleted has come back"
say "installed, seeded, and the file opened"
