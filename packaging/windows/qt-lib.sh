# shellcheck shell=bash
# Qt for Windows: Debian's own source package, built with its cross compiler and its own Qt for the tools that run here. Made once for
# each version and each set of options, and kept. Sourced after tools/lib.sh, never run.

# Where it is kept. Whoever wants a new one deletes it.
windows_cache=${VELLUTO_WINDOWS_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/velluto/windows}

# What the program uses of Qt and nothing else: no module, plug-in or image format that it never asks for, and no library but
# those that are in Qt's own sources. Debian's source lacks what tabletevent would take; printing takes direct2d, and the desktop's
# tests take testlib, which no setup and no archive holds.
qt_off=(sql dbus opengl opengl_dynamic opengles2 network vulkan xml concurrent tabletevent direct2d1_1 icu zstd
    freetype jpeg gif ico style_windowsvista systemtrayicon textmarkdownreader textmarkdownwriter textodfwriter cborstreamwriter
    commandlineparser androiddeployqt macdeployqt windeployqt qmake system_zlib system_png system_harfbuzz system_pcre2
    system_doubleconversion system_libb2 pkg_config force_debug_info)
qt_on=(printsupport png harfbuzz pcre2 sessionmanager accessibility direct2d testlib)

# One number for the options above and for how they are put to use below.
qt_recipe() {
    { declare -p qt_off qt_on; declare -f qt_unpack qt_configure qt_make; } | sha256sum | cut -c 1-12
}

# The description of the sources in the cache; nothing where there are none yet.
qt_description() {
    find "$windows_cache" -maxdepth 2 -path "$windows_cache/source/qt6-base_*.dsc" 2>/dev/null | sort | tail -n 1
}

# What the compilers are told, without the words about it.
qt_toolchain() {
    sed 's/ *#.*//; /^$/d' "$1"
}

# qt_kept: sets qt_folder to the place of the Qt of the sources in the cache and of these options; false where it is not there, or was
# made by another toolchain. One of before that was noted is taken as it is.
qt_kept() {
    qt_folder=$windows_cache/$(basename "$(qt_description)" .dsc)-$(qt_recipe)
    [ -d "$qt_folder" ] &&
        { [ ! -f "$qt_folder/toolchain.cmake" ] || [ "$(qt_toolchain "$qt_folder/toolchain.cmake")" = "$(qt_toolchain cmake/mingw.cmake)" ]; }
}

# qt_source: brings Debian's source package to the cache, and sets qt_dsc to its description. Its own lists and sources: those of the
# machine stay as they are.
qt_source() {
    local apt=$windows_cache/apt options
    qt_dsc=$(qt_description)
    [ -z "$qt_dsc" ] || return 0
    say "Fetching Debian's sources of Qt"
    rm -rf "$apt" "$windows_cache/source.new"
    mkdir -p "$apt/lists/partial" "$apt/cache/archives/partial" "$windows_cache/source.new"
    say "deb-src [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] http://deb.debian.org/debian bookworm main" >"$apt/sources.list"
    options=(-q -o "Dir::Etc::SourceList=$apt/sources.list" -o Dir::Etc::SourceParts=/dev/null -o "Dir::State::Lists=$apt/lists"
        -o "Dir::Cache=$apt/cache" -o "APT::Sandbox::User=$(id -un)")
    if ! { apt-get "${options[@]}" update &&
        (cd "$windows_cache/source.new" && apt-get "${options[@]}" source --download-only qt6-base); } >"$windows_cache/apt.log" 2>&1; then
        tail -n 20 "$windows_cache/apt.log" >&2
        return 1
    fi
    mv "$windows_cache/source.new" "$windows_cache/source"
    qt_dsc=$(qt_description)
}

# qt_unpack FOLDER: the sources as Debian builds them, but for the one platform plug-in that no switch leaves out.
qt_unpack() {
    rm -rf "$1" "$1.new"
    dpkg-source --no-check --no-copy -x "$qt_dsc" "$1.new"
    sed -i 's/^    add_subdirectory(minimal)$//' "$1.new/src/plugins/platforms/CMakeLists.txt"
    mv "$1.new" "$1"
}

# qt_configure SOURCE BUILD. No path and no time of this build is in what comes of it: what CMake packs into a library has its time, what Qt's
# own script packs has none.
qt_configure() {
    local features=() flags="-ffile-prefix-map=$1=qtbase -ffile-prefix-map=$2=qtbase-build" name
    for name in "${qt_off[@]}"; do
        features+=("-DFEATURE_$name=OFF")
    done
    for name in "${qt_on[@]}"; do
        features+=("-DFEATURE_$name=ON")
    done
    cmake -G Ninja -S "$1" -B "$2" -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/mingw.cmake" -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_INSTALL_PREFIX=/qt -DCMAKE_MESSAGE_LOG_LEVEL=STATUS -DBUILD_SHARED_LIBS=ON \
        -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR="/usr/lib/$(dpkg-architecture -qDEB_BUILD_MULTIARCH)/cmake" \
        -DQT_QMAKE_TARGET_MKSPEC=win32-g++ -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF -DINPUT_opengl=no "${features[@]}" \
        -DQT_AVOID_CMAKE_ARCHIVING_API=ON \
        -DCMAKE_C_FLAGS="$flags" -DCMAKE_CXX_FLAGS="$flags" -DCMAKE_EXE_LINKER_FLAGS= \
        -DCMAKE_SHARED_LINKER_FLAGS="-Wl,--no-insert-timestamp" -DCMAKE_MODULE_LINKER_FLAGS="-Wl,--no-insert-timestamp"
}

# qt_make SOURCE BUILD TO: an interrupted one goes on where it was. Whose it is goes along: of what is bundled, what Windows' build has.
# Its time is that of Debian's sources, whichever tree asks for it.
qt_make() {
    local part SOURCE_DATE_EPOCH
    SOURCE_DATE_EPOCH=$(dpkg-parsechangelog --file "$1/debian/changelog" --show-field Timestamp)
    export SOURCE_DATE_EPOCH
    nice -n 19 ninja -C "$2" -j "${VELLUTO_JOBS:-$(nproc)}" || return 1
    rm -rf "$3.new"
    DESTDIR=$3.new cmake --install "$2" --strip || return 1
    mkdir "$3.new/qt/licences"
    install -m 644 "$1/debian/copyright" "$3.new/qt/licences/copyright.txt"
    install -m 644 "$1"/LICENSES/{LGPL-3.0-only,GPL-3.0-only,GPL-2.0-only,BSD-3-Clause,MIT}.txt "$3.new/qt/licences"
    for part in blake2/COPYING double-conversion/LICENSE easing/LICENSE harfbuzz-ng/COPYING icc/LICENSE.txt libpng/LICENSE pcre2/LICENCE \
        pcre2/LICENCE-SLJIT pixman/LICENSE rfc6234/LICENSE tinycbor/LICENSE zlib/LICENSE; do
        install -m 644 "$1/src/3rdparty/$part" "$3.new/qt/licences/$(dirname "$part")-$(basename "$part" .txt).txt"
    done
    mv "$3.new/qt" "$3"
    rm -rf "$3.new"
}

# qt_build SOURCE
qt_build() {
    [ -f "$qt_folder.build/build.ninja" ] || qt_configure "$1" "$qt_folder.build"
    rm -rf "$qt_folder.made"
    qt_make "$1" "$qt_folder.build" "$qt_folder.made"
    cp cmake/mingw.cmake "$qt_folder.made/toolchain.cmake"
    rm -rf "$qt_folder" # which another toolchain has made
    mv "$qt_folder.made" "$qt_folder"
}

# qt_step COMMAND...: ends at its first failure. An "if" or "||" in front of it would let a function go on behind one.
qt_step() {
    local status
    set +e
    (set -e && "$@") >>"$qt_folder.log" 2>&1
    status=$?
    set -e
    if [ "$status" -ne 0 ]; then
        tail -n 40 "$qt_folder.log" >&2
        complain "Qt could not be built; the whole story is in $qt_folder.log"
        exit 1
    fi
}

# qt_for_windows: sets qt_folder to a Qt for Windows, which it makes where there is none of this version and these options. Who shares the
# cache waits meanwhile.
qt_for_windows() {
    local source lock
    mkdir -p "$windows_cache"
    ! qt_kept || return 0
    exec {lock}>"$windows_cache/lock"
    if ! flock --nonblock "$lock"; then
        say "Waiting for the Qt that somebody else builds in $windows_cache"
        flock "$lock"
    fi
    qt_source
    if ! qt_kept; then
        source=$windows_cache/$(basename "$qt_dsc" .dsc)
        say "Building Qt for Windows (once; an hour or so on two cores). It is told in $qt_folder.log"
        : >"$qt_folder.log"
        [ -d "$source" ] || qt_step qt_unpack "$source"
        qt_step qt_build "$source"
        rm -rf "$qt_folder.build" "$source"
    fi
    exec {lock}>&-
}

# build_over_qt PRESET TARGET...: over the Qt in qt_folder. Where that is another one than last time, what was found of that is not asked again.
build_over_qt() {
    local tools
    tools=/usr/lib/$(dpkg-architecture -qDEB_BUILD_MULTIARCH)/cmake
    grep -qsx "VELLUTO_QT:[A-Z]*=$qt_folder" "build/$1/CMakeCache.txt" || rm -rf "build/$1"
    VELLUTO_QT=$qt_folder VELLUTO_QT_TOOLS=$tools build "$@"
}

# put FROM... TO: copies that anyone may read, and nobody need run.
put() {
    mkdir -p "${*: -1}"
    install -m 644 -t "${*: -1}" "${@:1:$#-1}"
}

# put_libraries FOLDER: what a desktop program there loads: Qt, and the language's libraries.
put_libraries() {
    local folder=$1 library gcc
    put "$qt_folder"/bin/Qt6{Core,Gui,Widgets,PrintSupport}.dll "$folder"
    put "$qt_folder/plugins/platforms/qwindows.dll" "$folder/platforms"
    printf '[Paths]\r\nPlugins=.\r\n' >"$folder/qt.conf" # and from nowhere else
    for library in libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll; do
        gcc=$(x86_64-w64-mingw32-g++-posix -print-file-name="$library")
        [ -f "$gcc" ] || gcc=/usr/x86_64-w64-mingw32/lib/$library
        put "$gcc" "$folder"
        x86_64-w64-mingw32-strip --strip-all --preserve-dates "$folder/$library"
    done
}
