# shellcheck shell=sh
# Where a user's own files are, and how what ships with the program gets there. The installed launcher and run.sh share it.
# Sourced by sh and bash, never run.

# Prints the folder in which the user's settings, tables, guides and notebook are.
user_folder() {
    case ${XDG_DATA_HOME-} in
    /*) printf '%s\n' "$XDG_DATA_HOME/velluto" ;;
    *) printf '%s\n' "$HOME/.local/share/velluto" ;; # a relative path there counts for nothing
    esac
}

# seed FROM TO: copies what TO does not have yet, folder by folder. What the user has is never written over; an empty file
# is what the program leaves where it found none, and holds nothing of the user's.
seed() {
    mkdir -p "$2"
    (cd "$1" && find . -type f) | while IFS= read -r seed_entry; do
        seed_entry=${seed_entry#./}
        if [ -L "$2/$seed_entry" ] || [ -s "$2/$seed_entry" ]; then
            continue
        fi
        mkdir -p "$(dirname "$2/$seed_entry")"
        # Under another name first: a copy that is cut short never stands in the place of a file that is whole.
        cp -- "$1/$seed_entry" "$2/$seed_entry.new" && mv -f -- "$2/$seed_entry.new" "$2/$seed_entry"
    done
}
