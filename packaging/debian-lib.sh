# shellcheck shell=bash
# Clean Debians, each in a folder: made once, kept, and copied for a trial. try-package.sh and try-debian.sh share it. Sourced after
# tools/lib.sh, never run; its callers are root.

# Where they are kept. Whoever wants new ones deletes it.
debians=${VELLUTO_DEBIANS:-build/debian}

# clean_debian SUITE: the smallest system of that name, in $debians/SUITE/clean, which gets its packages as this machine does.
clean_debian() {
    local folder=$debians/$1/clean
    [ ! -d "$folder" ] || return 0
    install_packages debootstrap iproute2
    say "A clean Debian in $folder"
    mkdir -p "$debians/$1"
    rm -rf --one-file-system "$folder.new"
    if ! debootstrap --variant=minbase "$1" "$folder.new" >"$folder.log" 2>&1; then
        tail -n 20 "$folder.log" >&2
        return 1
    fi
    local file
    for file in /etc/apt/apt.conf.d/*; do
        ! grep -q 'Acquire' "$file" || cp "$file" "$folder.new/etc/apt/apt.conf.d/"
    done
    mv "$folder.new" "$folder"
}

# in_debian [--alone] FOLDER COMMAND...: runs it in the system there, as root. Its mounts, its shared memory and whatever it has started
# end with it. Alone it has no network but its own, so that the displays of other tests on this machine, which X servers find by the
# network too, are not in its way. Its root is a mount, without which nothing there could mount anything, as tests of full disks do.
in_debian() {
    local apart=(unshare --mount --pid --ipc --fork --kill-child) net=true
    if [ "$1" = --alone ]; then
        apart+=(--net)
        net="ip link set lo up"
        shift
    fi
    cp /etc/resolv.conf "$1/etc/" 2>/dev/null || true
    # shellcheck disable=SC2016 # the words are for the inner shell
    "${apart[@]}" bash -euc "$net"'
        mount --bind "$1" "$1"
        mount -t proc proc "$1/proc"
        mount -t tmpfs tmpfs "$1/dev/shm"
        exec env -i HOME=/root LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin \
            chroot "$@"' - "$@"
}
