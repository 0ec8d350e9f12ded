#!/bin/sh
# Starts Velluto in its user's own folder, with what ships with it put there first. Arguments are files to open.
set -eu
top=$(dirname "$(dirname "$(realpath "$0")")")
# shellcheck source=packaging/user-folder.sh
. "$top/share/velluto/user-folder.sh"

# The program is about to stand in another folder: paths become full ones. What names no file is left as it is.
for argument; do
    shift
    case $argument in
    /*) ;;
    *) [ ! -e "$argument" ] || argument=$PWD/$argument ;;
    esac
    set -- "$@" "$argument"
done

folder=$(user_folder)
seed "$top/share/velluto/data" "$folder"
cd "$folder"
exec "$top/libexec/velluto/velluto" "$@"
