#!/usr/bin/env bash
# Installs what is missing, builds what is out of date, and starts Velluto in ${XDG_DATA_HOME:-~/.local/share}/velluto.
# Where there is no display it makes one that a VNC viewer on this machine can look at.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
# shellcheck source=tools/lib.sh
. tools/lib.sh

# Questions are answered at once: by the program where it has been built before, else from what is here.
program=$PWD/build/release/velluto
case ${1-} in
-h | --help | --version)
    [ ! -x "$program" ] || exec "$program" "$1"
    if [ "$1" = --version ]; then
        sed -n 's/^project(velluto VERSION \([0-9.]*\).*/velluto \1/p' CMakeLists.txt
    else
        say "usage: ./run.sh [FILE...]"
        say "Installs what is missing, builds Velluto, and starts it with the files. Once it is built, --help is the program's own."
    fi
    exit
    ;;
esac

needed=("${build_packages[@]}")
if [ -z "${DISPLAY-}${WAYLAND_DISPLAY-}" ]; then
    needed+=("${remote_display_packages[@]}")
elif [ -z "${DISPLAY-}" ]; then
    needed+=(qt6-wayland)
fi
install_packages "${needed[@]}"
build release velluto

folder=$(user_folder)
seed data "$folder"
cd "$folder"

if [ -n "${DISPLAY-}${WAYLAND_DISPLAY-}" ]; then
    exec "$program" "$@"
fi

secrets=$(mktemp -d)
# shellcheck disable=SC2317 # a trap reaches it
finish() {
    trap - EXIT INT TERM HUP
    end_processes "${started_pids[@]}"
    rm -rf "$secrets"
}
trap finish EXIT
trap 'exit 130' INT
trap 'exit 143' TERM
trap 'exit 129' HUP

if [ -z "${XDG_RUNTIME_DIR-}" ]; then
    export XDG_RUNTIME_DIR=$secrets/run
    mkdir -m 700 "$XDG_RUNTIME_DIR"
fi
start_display "$secrets" 1280x900

# A word of eight letters for this run alone: other users of this machine reach the loopback too. The viewer's file is
# removed as soon as it has been read.
password=$(tr -dc 'a-hjkmnp-z2-9' </dev/urandom | head -c 8 || true)
(umask 077 && printf '%s\n' "$password" >"$secrets/password")
mkfifo "$secrets/port"
x11vnc -display "$DISPLAY" -auth "$XAUTHORITY" -localhost -autoport 5900 -passwdfile "rm:$secrets/password" -forever -shared \
    -noxdamage -quiet -no6 >"$secrets/port" 2>"$secrets/x11vnc.log" &
started_pids+=($!)
port=
while IFS= read -r -t 20 line; do
    case $line in
    PORT=*)
        port=${line#PORT=}
        break
        ;;
    esac
done <>"$secrets/port"
if [ -z "$port" ]; then
    complain "x11vnc did not start:"
    cat "$secrets/x11vnc.log" >&2
    exit 1
fi
say "No display here: Velluto is on $DISPLAY, seen with a VNC viewer on this machine at localhost:$port, password $password"

"$program" "$@" &
started_pids+=($!)
status=0
wait "$!" || status=$?
exit "$status"
