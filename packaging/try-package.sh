#!/usr/bin/env bash
# Tries the Debian package as its user would get it: on a Debian that has nothing else on it, as a user who is nobody in
# particular, on a display of its own. Root only; needs a Debian archive and some minutes. Leaves the package and a picture of the
# program's window in build/.
#
#     packaging/try-package.sh                    # makes the package here and tries it on Debian 12
#     packaging/try-package.sh SUITE PACKAGE      # tries a package that is there already
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=tools/lib.sh
. tools/lib.sh
# shellcheck source=packaging/debian-lib.sh
. packaging/debian-lib.sh

suite=${1:-bookworm}
package=${2-}
if [ -z "$package" ]; then
    install_packages "${build_packages[@]}" dpkg-dev
    build release
    rm -f build/release/*.deb
    (cd build/release && cpack >cpack.log) || {
        cat build/release/cpack.log >&2
        exit 1
    }
    package=$(find build/release -maxdepth 1 -name '*.deb')
fi
mkdir -p build
cp "$package" "build/$suite-$(basename "$package")"
unpacked=$(mktemp -d)
dpkg-deb --extract "$package" "$unpacked"
tools/check-hardened "$unpacked/usr/libexec/velluto/velluto" "$unpacked/usr/bin/velluto-tool"
rm -rf "$unpacked"
install_packages lintian
lintian --fail-on error,warning "$package"
clean_debian "$suite"

root=$(mktemp -d)
trap 'rm -rf --one-file-system "$root"' EXIT
trap 'exit 130' INT
trap 'exit 143' TERM
cp -a "$debians/$suite/clean/." "$root"
chmod 755 "$root" # it is everybody's there
cp "$package" "$root/velluto.deb"

cat >"$root/install.sh" <<'INSIDE'
set -eu
apt-get -q update
apt-get -q install -y --no-install-recommends /velluto.deb
apt-get -q install -y --no-install-recommends xvfb xdotool openbox imagemagick desktop-file-utils shared-mime-info
update-mime-database /usr/share/mime
desktop-file-validate /usr/share/applications/velluto.desktop
INSIDE
cat >"$root/try.sh" <<'INSIDE'
set -eu
useradd --create-home musician
cat >/home/musician/evening.sh <<'EVENING'
set -eu
export XDG_RUNTIME_DIR=$HOME/run LC_ALL=C.UTF-8
mkdir -m 700 "$XDG_RUNTIME_DIR"
Xvfb :91 -screen 0 1024x768x24 -nolisten tcp &
display=$!
export DISPLAY=:91
sleep 5
openbox --sm-disable &
cp /usr/share/velluto/data/samples/Full-64.pcg "$HOME/Stage.pcg"
cd "$HOME"
velluto Stage.pcg &
program=$!
title() { xdotool getactivewindow getwindowname 2>/dev/null || true; }
await() {
    for _ in $(seq 1200); do
        if [ "$(title)" = "$1" ]; then return 0; fi
        sleep 0.1
    done
    echo "no window \"$1\"" >&2
    exit 1
}
await "Velluto v 1.1"
xdotool key Down Return
sleep 5
xdotool key Return # there is no MIDI input here, and the program says so
await "Velluto v 1.1 - Velluto"
sleep 1
import -window root "$HOME/window.png"
kill -TERM "$program"
wait "$program"
[ "$(stat -c %s "$HOME/.local/share/velluto/Velluto.ini")" -eq 40000 ]
kill "$display"
EVENING
su musician -c 'sh ~/evening.sh'
apt-get -q remove -y velluto
! command -v velluto
INSIDE
log=build/try-package-$suite.log
{ in_debian "$root" sh /install.sh && in_debian --alone "$root" sh /try.sh; } >"$log" 2>&1 || {
    tail -n 40 "$log" >&2
    complain "The package failed its trial; the whole story is in $log"
    exit 1
}
cp "$root/home/musician/window.png" "build/try-package-$suite.png"
say "$suite: the package installs, starts, opens a file, ends and goes: $(basename "$package"), build/try-package-$suite.png"
