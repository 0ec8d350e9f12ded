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

# Guides as they shipped before there was a record of what had been put: whoever still has one of these has left it alone.
seed_earlier='
64f415619970db8a6886b42a5ad78227da7943c15acca1694e37f208b6aba19f Velluto-GuidaUtente.txt
680cca3df95d87afe3b5336197fae9c72e8767e2b31b898cd038591a19d59295 Velluto-GuidaUtente.txt
b0e514be1eec561db81b7ce109034cd57dc763ab616ae7ca677637febd39ee25 Velluto-GuidaUtente.txt
f0e7867552283d209984cf24eaf8bc8abbfea43f1203cd9c89a9d9f267af7585 Velluto-GuidaUtente.txt
f87452071d05555c145a7b58a52aa64a310aaba45055e3a8975134c1d11812ed Velluto-GuidaUtente.txt
35cd4234b8638fbaa5c41ca62f3f6b4cd1fc2704a25fab18286363dbe600e94c Velluto-UserGuide.txt
b76b5be07415a26c6efc0e002d37786df6e769e58e2c907f316182fc028f29ff Velluto-UserGuide.txt
e47fada82c2a95c4d353ef5bc3545f7d08482db2c9af427c4c4e4e9163563119 Velluto-UserGuide.txt
e72a997351f103f106eba2456140050eabbb388b2b5e4e2f7715b67196de9534 Velluto-UserGuide.txt
f64688f6cbefaca3c7861f21c73ecef62a9e541332d5c0670acf542a310ff4ad Velluto-UserGuide.txt
'

# seed_sum FILE: its checksum.
seed_sum() {
    sha256sum <"$1" | cut -d ' ' -f 1
}

# seed_untouched FILE NAME RECORDED: the file is what was put there, be it now or in the days before the record (RECORDED is -).
seed_untouched() {
    seed_have=$(seed_sum "$1")
    case $3 in
    -) case $seed_earlier in *"$seed_have $2"*) return 0 ;; *) return 1 ;; esac ;;
    *) [ "$seed_have" = "$3" ] ;;
    esac
}

# seed_put FROM TO: under another name first, so that a copy that is cut short never stands in the place of a file that is whole.
seed_put() {
    mkdir -p "$(dirname "$2")"
    cp -- "$1" "$2.new" && mv -f -- "$2.new" "$2"
}

# seed_settled FROM TO: nothing of what ships has come or changed since the record was made, and nothing of it is missing.
seed_settled() {
    [ -s "$seed_record" ] && [ -z "$(find "$1" -cnewer "$seed_record" -print -quit)" ] || return 1
    find "$1" -type f -printf '%P\n' | while read -r seed_entry; do
        case $seed_entry in c-*.cmp) continue ;; esac
        [ -s "$2/$seed_entry" ] || [ -L "$2/$seed_entry" ] || exit 1
    done
}

# seed FROM TO: copies what TO does not have yet, folder by folder, and brings up to date what its user has never touched. What the
# user has made or changed is never written over, and a compilation that the user has deleted stays away; an empty file is what
# the program leaves where it found none, and holds nothing of the user's. TO/.velluto-shipped is the record of what was put: a
# line for each file, its checksum and its name.
seed() {
    mkdir -p "$2"
    seed_record=$2/.velluto-shipped
    ! seed_settled "$1" "$2" || return 0 # most starts end here
    [ -f "$seed_record" ] || : >"$seed_record" || return 0 # nothing can be put there
    (cd "$1" && find . -type f -exec sha256sum {} + | sort -k 2) |
        awk '{ name = substr($0, 67); sub(/^\.\//, "", name) }
             FILENAME == "-" { print $1, (name in put ? put[name] : "-"), name; next }
             { put[name] = $1 }' "$seed_record" - |
        while read -r seed_new seed_recorded seed_entry; do
            seed_file=$2/$seed_entry
            seed_kept=$seed_recorded
            if [ -L "$seed_file" ]; then
                :
            elif [ ! -s "$seed_file" ]; then
                case $seed_entry:$seed_recorded in
                c-*.cmp:[!-]*) ;;
                *) seed_put "$1/$seed_entry" "$seed_file" && seed_kept=$seed_new ;;
                esac
            elif [ "$seed_recorded" = "$seed_new" ]; then
                :
            elif seed_untouched "$seed_file" "$seed_entry" "$seed_recorded"; then
                seed_put "$1/$seed_entry" "$seed_file" && seed_kept=$seed_new
            elif [ "$seed_have" = "$seed_new" ]; then
                seed_kept=$seed_new
            fi
            [ "$seed_kept" = - ] || printf '%s  %s\n' "$seed_kept" "$seed_entry"
        done >"$seed_record.new" || return 0
    if cmp -s "$seed_record.new" "$seed_record"; then
        rm -f -- "$seed_record.new"
        touch -- "$seed_record"
    else
        mv -f -- "$seed_record.new" "$seed_record"
    fi
}
