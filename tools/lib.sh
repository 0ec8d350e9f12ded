# shellcheck shell=bash disable=SC2034
# Shell functions that run.sh, test.sh and the system tests share: packages, builds, a display where there is none.
# Sourced, never run. Callers have set -euo pipefail and stand in the root of the project.

# What it takes to build the program and to run it. libjack-jackd2-dev is named with librtmidi-dev in one breath: left to
# itself apt takes the other JACK, whose clients cannot talk to the usual server.
build_packages=(g++ cmake ninja-build pkg-config qt6-base-dev librtmidi-dev libjack-jackd2-dev libfluidsynth-dev
    timgm6mb-soundfont fonts-liberation)

# What building and running the tests takes on top of that, with any compiler.
test_packages=(libgtest-dev libgmock-dev nlohmann-json3-dev jackd2 xvfb openbox xdotool x11-utils imagemagick poppler-utils
    python3 python3-gi gir1.2-atspi-2.0 at-spi2-core dbus)
# Since Debian 13 JACK's small commands are a package of their own.
grep -qsx 'VERSION_ID="12"' /etc/os-release || test_packages+=(jack-example-tools)

# What the builds of every day and the checks take besides.
check_packages=(clang mold libbenchmark-dev clang-format git shellcheck pyflakes3)

# What builds for Windows, and runs what comes of it.
windows_packages=(g++-mingw-w64-x86-64-posix googletest nlohmann-json3-dev clang wine wine64)

# What makes the desktop program for Windows besides, and what installs it there.
windows_setup_packages=(dpkg-dev qt6-base-dev nsis zip python3)

# What tries it out besides: a font like the one that Windows draws its own words in, and a look at its clipboard.
windows_trial_packages=(fonts-open-sans unzip xclip)

# What the checks of a full run take besides.
full_test_packages=(clang-tidy libclang-rt-dev valgrind g++-mingw-w64-x86-64-posix)

# What shows the program where there is no display.
remote_display_packages=(xvfb openbox x11vnc)

# user_folder and seed.
# shellcheck source=packaging/user-folder.sh
. "$(dirname "${BASH_SOURCE[0]}")/../packaging/user-folder.sh"

say() {
    printf '%s\n' "$*"
}

complain() {
    printf '%s\n' "$*" >&2
}

# As CMakeLists.txt has it.
project_version() {
    sed -n 's/^project(velluto VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt
}

# The packages among "$@" that are not installed, one a line.
missing_packages() {
    local installed
    # dpkg-query fails where one name is unknown, and still lists the others.
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null | sed -n 's/^installed //p' || true)
    local package
    for package in "$@"; do
        grep -qxF -- "$package" <<<"$installed" || say "$package"
    done
}

# Installs what is missing of "$@"; does nothing at all where everything is there.
install_packages() {
    if ! command -v dpkg-query >/dev/null; then
        complain "This is no Debian: make sure that you have the like of: $*"
        return 0
    fi
    local missing
    mapfile -t missing < <(missing_packages "$@")
    [ "${#missing[@]}" -gt 0 ] || return 0
    case " ${missing[*]} " in
    *" libjack-jackd2-dev "*) ;;
    *" librtmidi-dev "*) missing+=(libjack-jackd2-dev) ;;
    esac

    local as_root=(env DEBIAN_FRONTEND=noninteractive)
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            complain "Missing, and neither root nor sudo to install it: apt-get install ${missing[*]}"
            return 1
        fi
        as_root=(sudo "${as_root[@]}")
    fi
    say "Installing ${missing[*]}"
    mkdir -p build
    local log=build/packages.log
    local apt=(apt-get -q -o DPkg::Lock::Timeout=300)
    "${as_root[@]}" "${apt[@]}" update >"$log" 2>&1 || complain "apt-get update failed (see $log); going on with the lists that are there"
    if ! "${as_root[@]}" "${apt[@]}" install -y --no-install-recommends "${missing[@]}" >>"$log" 2>&1; then
        tail -n 20 "$log" >&2
        complain "The packages could not be installed; the whole story is in $log"
        return 1
    fi
}

# build PRESET TARGET...: configures where that was never done and builds what is out of date. Says nothing where nothing is
# to be done, one line where something is, and the compiler's words where it fails.
build() {
    local preset=$1 folder=build/$1
    shift
    mkdir -p "$folder"
    local log=$folder/build.log
    if ! grep -qsxF "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "$folder/CMakeCache.txt"; then
        rm -rf "$folder/CMakeCache.txt" "$folder/CMakeFiles" # the project has been moved, or was never configured
    fi
    if [ ! -f "$folder/build.ninja" ] || [ ! -f "$folder/CMakeCache.txt" ]; then
        if ! cmake --preset "$preset" >"$log" 2>&1; then
            cat "$log" >&2
            return 1
        fi
    fi
    if ! ninja -C "$folder" "$@" 2>&1 | tee "$log" | show_progress "$preset"; then
        grep -v '^\[[0-9]*/[0-9]*\] \(Building\|Linking\|Automatic\)' "$log" | tail -n 60 >&2
        complain "The build failed; the whole story is in $log"
        return 1
    fi
}

# One line for a build that has something to do; on a terminal it counts along.
show_progress() {
    local tty=0
    [ ! -t 1 ] || tty=1
    awk -v preset="$1" -v tty="$tty" '
        match($0, /^\[[0-9]+\/[0-9]+\] (Building|Linking|Automatic)/) {
            if (tty) printf "\rBuilding (%s) %s ", preset, $1
            else if (!said) print "Building (" preset ")"
            said = 1
            fflush()
        }
        END { if (tty && said) print "" }'
}

# An authority file that lets in who can read it and nobody else: one cookie, good for any display number.
write_cookie() {
    (
        umask 077
        {
            printf '\377\377\0\0\0\0\0\022MIT-MAGIC-COOKIE-1\0\020'
            head -c 16 /dev/urandom
        } >"$1"
    )
}

# In front of a command in the background: it ends where this shell does, even where that is killed.
our_own=(setpriv --pdeathsig KILL --)

# start_display FOLDER SIZE [NUMBER] [OPTION...]: a virtual display with its window manager, on the given number or else on a free
# one. Leaves its secrets and logs in FOLDER, sets and exports DISPLAY and XAUTHORITY, and puts the processes into display_pids
# and started_pids.
started_pids=()
display_pids=()
start_display() {
    local folder=$1 size=$2 number=${3-}
    write_cookie "$folder/authority"
    export XAUTHORITY=$folder/authority
    mkfifo "$folder/display"
    # It would begin anew when the first program that looks leaves before the window manager has come.
    "${our_own[@]}" Xvfb ${number:+":$number"} "${@:4}" -noreset -displayfd 7 -auth "$XAUTHORITY" -nolisten tcp -screen 0 "${size}x24" \
        7<>"$folder/display" >"$folder/Xvfb.log" 2>&1 &
    display_pids=($!)
    started_pids+=($!)
    local answer=
    if ! read -r -t 20 answer <>"$folder/display" || [ -z "$answer" ]; then
        complain "Xvfb did not start:"
        cat "$folder/Xvfb.log" >&2
        return 1
    fi
    export DISPLAY=:$answer
    "${our_own[@]}" openbox --sm-disable >"$folder/openbox.log" 2>&1 &
    display_pids+=($!)
    started_pids+=($!)
}

# Ends the processes named, the last one first, and waits until they are gone.
end_processes() {
    local index pids=("$@")
    for ((index = ${#pids[@]} - 1; index >= 0; index--)); do
        kill "${pids[index]}" 2>/dev/null || true
        wait "${pids[index]}" 2>/dev/null || true
    done
}
