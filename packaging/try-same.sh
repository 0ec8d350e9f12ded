#!/usr/bin/env bash
# Builds and packs the last commit twice, in two folders and as two users would who keep different things from others, and says
# whether the two packages are the same bytes.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=tools/lib.sh
. tools/lib.sh

install_packages "${build_packages[@]}" git dpkg-dev
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

# pack UMASK FOLDER
pack() {
    (
        umask "$1"
        git clone -q . "$2"
        cd "$2"
        build release
        cd build/release
        cpack >cpack.log
    )
}

pack 022 "$root/here"
pack 077 "$root/in/another folder"
package=$(basename "$root"/here/build/release/*.deb)
cmp "$root/here/build/release/$package" "$root/in/another folder/build/release/$package"
say "$package: twice the same bytes"
