#!/usr/bin/env bash
# Makes on Debian 12 all that there is for Windows, and installs what that takes: Qt (once), the desktop program with its setup and its
# archive to unpack, the driver and the tests. Times and orders in it are fixed, for two runs over the same tree to give the same bytes.
#
#     packaging/windows/build.sh [--product]    --product: without the driver and the tests
#
# VELLUTO_WINDOWS_CACHE names the folder where Qt is kept, else ~/.cache/velluto/windows; VELLUTO_JOBS how many compilers run at once.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
# shellcheck source=tools/lib.sh
. tools/lib.sh
# shellcheck source=packaging/windows/qt-lib.sh
. packaging/windows/qt-lib.sh
# shellcheck source=packaging/windows/setup-lib.sh
. packaging/windows/setup-lib.sh

product=false
case "$*" in
'') ;;
--product) product=true ;;
*)
    complain "usage: packaging/windows/build.sh [--product]"
    exit 2
    ;;
esac
if ! grep -qsx 'VERSION_ID="12"' /etc/os-release; then
    complain "This takes Debian 12: Qt's own tools, which run here, have to be of the version that is built for Windows"
    exit 2
fi

version=$(project_version)
out=$PWD/build/windows-desktop
stage=$out/stage/Velluto-$version
setup=$out/Velluto-$version-setup.exe
archive=$out/Velluto-$version-windows.zip
most_setup=12 most_archive=15 most_unpacked=40 # million bytes

if [ -z "${SOURCE_DATE_EPOCH-}" ]; then
    SOURCE_DATE_EPOCH=$(git log -1 --format=%ct 2>/dev/null || dpkg-parsechangelog --file packaging/changelog --show-field Timestamp)
fi
export SOURCE_DATE_EPOCH TZ=UTC LC_ALL=C.UTF-8

# What the setup installs: the program, what it loads, what ships, and whose it all is.
stage_files() {
    rm -rf "$out/stage"
    put "$out/velluto.exe" "$out/velluto-tool.exe" "$stage"
    put_libraries "$stage"
    cp -r data "$stage/data"
    find "$stage/data" -name '.*' -delete
    sum_data "$stage"
    mkdir -p "$stage/licences"
    install -m 644 LICENSE "$stage/licences/Velluto.txt"
    install -m 644 /usr/share/doc/gcc-mingw-w64-base/copyright "$stage/licences/GCC.txt"
    install -m 644 /usr/share/doc/mingw-w64-common/copyright "$stage/licences/mingw-w64.txt"
    cp -r "$qt_folder/licences" "$stage/licences/Qt"
    sed "s|@QT@|$(basename "$qt_folder" | sed 's/^qt6-base_\(.*\)-[0-9a-f]*$/\1/')|" packaging/windows/licences.txt >"$stage/licences/README.txt"
    sed -i 's/\r*$/\r/' "$stage"/licences/*.txt # for editors that know no other end of a line
    chmod -R u=rwX,go=rX "$stage"
    find "$out/stage" -exec touch -h -d "@$SOURCE_DATE_EPOCH" {} +
}

make_archive() {
    install -m 644 packaging/windows/portable.txt "$stage/portable.txt"
    sed -i 's/\r*$/\r/' "$stage/portable.txt"
    find "$out/stage" -exec touch -h -d "@$SOURCE_DATE_EPOCH" {} +
    rm -f "$archive"
    (cd "$out/stage" && find . -mindepth 1 -printf '%P\n' | sort | zip -q -X -9 "$archive" -@)
    touch -d "@$SOURCE_DATE_EPOCH" "$archive"
}

# size_of WHAT MOST NAME: says how large it is, and fails where that is more than so many million bytes.
size_of() {
    local bytes
    bytes=$(du -sb "$1" | cut -f 1)
    say "$3: $((bytes / 100000 / 10)).$((bytes / 100000 % 10)) MB"
    [ "$bytes" -le $(($2 * 1000000)) ] || { complain "$3 is larger than $2 MB" && return 1; }
}

install_packages "${build_packages[@]}" "${windows_packages[@]}" "${windows_setup_packages[@]}"
qt_for_windows
build_over_qt windows-desktop velluto velluto-tool
stage_files
make_setup "$stage" "$version" "$out/desktop/velluto.ico" "$setup"
make_archive
size_of "$stage" "$most_unpacked" "Unpacked"
size_of "$archive" "$most_archive" "${archive#"$PWD/"}"
size_of "$setup" "$most_setup" "${setup#"$PWD/"}"
if ! $product; then
    build windows
    build_over_qt windows-desktop-tests desktop_tests
    say "build/windows: velluto-driver.exe and the tests; build/windows-desktop-tests: those of the desktop; packaging/windows/test.sh runs them"
fi
