#!/usr/bin/env bash
# run.sh answers --help and --version without a build: the program does where there is one, else run.sh itself.
#
#     run-questions.sh PROJECT VERSION
set -euo pipefail
project=$1 version=$2
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
cd "$project"
cp --parents run.sh CMakeLists.txt tools/lib.sh packaging/user-folder.sh "$root"
cd "$root"

# expect BEGINNING ANSWER
expect() {
    case $2 in
    "$1"*) ;;
    *)
        printf 'not "%s" but "%s"\n' "$1" "$2" >&2
        exit 1
        ;;
    esac
}

expect "velluto $version" "$(./run.sh --version)"
expect "usage: ./run.sh " "$(./run.sh --help)"
mkdir -p build/release
printf '#!/bin/sh\necho "asked $*"\n' >build/release/velluto
chmod +x build/release/velluto
expect "asked --version" "$(./run.sh --version)"
expect "asked -h" "$(./run.sh -h more)"
