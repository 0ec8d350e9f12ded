# shellcheck shell=bash
# The setup for Windows, made of a folder with what it installs. Sourced after tools/lib.sh, never run.

# sum_data FOLDER: what the program looks up there to tell which of its user's copies are as they shipped.
sum_data() {
    (cd "$1/data" && find . -type f -printf '%P\0' | sort -z | xargs -0 sha256sum) >"$1/data.sha256"
}

# write_file_list FOLDER: what NSIS copies and takes away again, by name.
write_file_list() {
    local folder
    say "!macro InstallFiles"
    (cd "$1" && find . -type d -printf '%P\n' | sort) | while IFS= read -r folder; do
        say "    SetOutPath \"\$INSTDIR${folder:+\\${folder//\//\\}}\""
        find "$1/$folder" -maxdepth 1 -type f | sort | sed 's|.*|    File "&"|'
    done
    say "!macroend"
    say "!macro DeleteFiles"
    # shellcheck disable=SC2016 # NSIS expands it
    (cd "$1" && find . -type f -printf '%P\n' | sort) | sed 's|/|\\|g; s|.*|    Delete "$INSTDIR\\&"|'
    # shellcheck disable=SC2016
    (cd "$1" && find . -mindepth 1 -type d -printf '%P\n' | sort -r) | sed 's|/|\\|g; s|.*|    RMDir "$INSTDIR\\&"|'
    say "!macroend"
}

# make_setup FOLDER VERSION ICON SETUP: the files' times go into it; its own is SOURCE_DATE_EPOCH.
make_setup() {
    local numbers # those of the version, of which there are two or three, and 0 for the rest of four
    numbers=$(sed -E 's/^([0-9]+\.[0-9]+\.[0-9]+).*/\1.0/' <<<"$2.0")
    write_file_list "$1" >"$4.nsh"
    makensis -V2 -NOCD -INPUTCHARSET UTF8 "-DVERSION=$2" "-DNUMBERS=$numbers" "-DFILES=$4.nsh" "-DICON=$3" "-DSIZE=$(du -sk --apparent-size "$1" | cut -f 1)" \
        "-DOUT=$4" packaging/windows/velluto.nsi
    rm -f "$4.nsh"
    touch -d "@$SOURCE_DATE_EPOCH" "$4"
}
