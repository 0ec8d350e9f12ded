#!/usr/bin/env bash
# Save As onto a full disk: the program says so and goes on trying each time its words are acknowledged, until there is room;
# then the file is there, whole.
#
#     gui-full-disk.sh PROGRAM INSTRUMENT PICTURES
set -euo pipefail
if [ -z "${VELLUTO_OWN_MOUNTS-}" ]; then
    export VELLUTO_OWN_MOUNTS=1 lane_user=$UID
    rights=()
    [ "$(id -u)" -eq 0 ] || rights=(--map-root-user)
    if ! unshare --mount "${rights[@]}" true 2>/dev/null; then
        echo "this machine allows no mount namespace"
        exit 77
    fi
    exec unshare --mount "${rights[@]}" "${BASH_SOURCE[0]}" "$@"
fi
# shellcheck source=tests/system/gui-lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/gui-lib.sh"

save_has_reached_the_disk() {
    cmp -s "$shipped/samples/Full-64.pcg" "$stage/disk/Copy.pcg"
}

begin full-disk "$@"
mkdir "$stage/disk"
mount -t tmpfs -o size=64k disk "$stage/disk"
dd if=/dev/zero of="$stage/disk/filler" bs=4k status=none 2>/dev/null || true
start_in_english "$program"
open_file samples/Full-64.pcg

changing press alt+f
for _ in 1 2 3 4; do
    changing press Up # from the top around the end: the recent file, Exit, Print, Save As
done
press Return
await_window "Save file as"
xdotool type --delay 2 "$stage/disk/Copy.pcg"
press Return
await_window "Velluto v 1.1"
for _ in 1 2; do
    press Return # still no room
    settle
    await_window "Velluto v 1.1"
done
rm "$stage/disk/filler"
press Return
await_window "Velluto v 1.1 - Velluto"
wait_until "the file on the disk" save_has_reached_the_disk

leave_program
umount "$stage/disk"
say "told, tried again, saved"
