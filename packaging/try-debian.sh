#!/usr/bin/env bash
# Builds the program with what a Debian has of its own, runs all tests there, makes its package and tries that. Root only; needs
# a Debian archive, 4 GB for each Debian and, the first time, most of an hour. What it makes stays (packaging/debian-lib.sh), so
# that the next time only what has changed is built.
#
#     packaging/try-debian.sh [bookworm|trixie]...     # both, where none is named
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=tools/lib.sh
. tools/lib.sh
# shellcheck source=packaging/debian-lib.sh
. packaging/debian-lib.sh

jobs=${JOBS:-$(nproc)}

# copy_tree FOLDER: the project as it stands here. What has not changed since the time before stays as it is there, and so does what was
# built of it.
copy_tree() {
    local new=$1.new file
    rm -rf "$new"
    mkdir -p "$1" "$new"
    git ls-files -z --cached --others --exclude-standard | while IFS= read -r -d '' file; do
        [ ! -e "$file" ] || printf '%s\0' "$file"
    done | tar -cf - --null -T - | tar -xf - -C "$new"
    (cd "$new" && find . -type f -print0) | while IFS= read -r -d '' file; do
        if cmp -s "$new/$file" "$1/$file"; then
            touch -r "$1/$file" "$new/$file"
        else
            touch "$new/$file"
        fi
    done
    find "$1" -mindepth 1 -maxdepth 1 ! -name build -exec rm -rf {} +
    mv "$new"/* "$new"/.[!.]* "$1"
    rmdir "$new"
}

# try_debian SUITE: fails with the end of what went wrong.
try_debian() {
    local suite=$1 root=$debians/$1/workshop log=$debians/$1/try-debian.log
    clean_debian "$suite"
    [ -d "$root" ] || cp -a "$debians/$suite/clean" "$root"
    copy_tree "$root/velluto"
    cat >"$root/build.sh" <<'INSIDE'
set -euo pipefail
cd /velluto
. tools/lib.sh
install_packages "${build_packages[@]}" "${test_packages[@]}" dpkg-dev file
g++ --version | head -n 1
dpkg-query -W librtmidi-dev libfluidsynth-dev qt6-base-dev
cmake -S . -B build/any -G Ninja -DCMAKE_BUILD_TYPE=Release -DVELLUTO_PRECOMPILE=ON
ninja -C build/any -j "$1"
INSIDE
    cat >"$root/try.sh" <<'INSIDE'
set -euo pipefail
cd /velluto
ctest --test-dir build/any --timeout 300 --no-tests=error --output-on-failure --parallel "$1"
rm -f build/any/*.deb
(cd build/any && SOURCE_DATE_EPOCH=$2 cpack)
INSIDE
    say "$suite: building and testing, told in $log"
    if ! { in_debian "$root" bash /build.sh "$jobs" && in_debian --alone "$root" bash /try.sh "$jobs" "$(git log -1 --format=%ct)"; } >"$log" 2>&1; then
        tail -n 60 "$log" >&2
        say "$suite: FAILED"
        return 1
    fi
    grep -E '^(g\+\+|lib|qt6)|tests passed' "$log"
    packaging/try-package.sh "$suite" "$root"/velluto/build/any/*.deb
}

suites=("$@")
[ "${#suites[@]}" -gt 0 ] || suites=(bookworm trixie)
for suite in "${suites[@]}"; do
    try_debian "$suite"
done
