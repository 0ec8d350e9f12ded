#!/usr/bin/env bash
# Shows how much of what reads and edits bytes the fuzz targets reach with the inputs that they have kept: lines, by file. Fails where
# less than 95 of 100 are reached. Installs what is missing. Which lines are missing, build/coverage/reached/lines.txt tells. What no
# target has in it is not counted: of tool/ the command line, the walk through folders and what writes files.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
# shellcheck source=tools/lib.sh
. tools/lib.sh
most_missing=5 # of a hundred lines
# What takes bytes from outside apart, or changes those of a document.
looked_at=(files edit platform/sequencer app/Settings app/RecentFiles player/Compilation player/EndOfFile banks/Factory notes/GuideText
    notes/NotebookText tool)

install_packages "${build_packages[@]}" "${test_packages[@]}" "${check_packages[@]}" llvm
build coverage tests/fuzz/all
reached=$PWD/build/coverage/reached
rm -rf "$reached"
mkdir "$reached"
programs=()
for target in build/coverage/tests/fuzz/fuzz_*; do
    name=${target##*/}
    if [ ! -f "$target" ] || [ ! -x "$target" ]; then continue; fi
    mkdir "$reached/$name"
    tar -xzf "tests/fuzz/corpus/$name.tar.gz" -C "$reached/$name" 2>/dev/null || true
    LLVM_PROFILE_FILE=$reached/$name.profraw "$target" -runs=0 "$reached/$name" data/samples >"$reached/$name.log" 2>&1
    programs+=(-object "$target")
done
llvm-profdata merge -sparse "$reached"/*.profraw -o "$reached/all.profdata"

sources=()
for part in "${looked_at[@]}"; do
    sources+=("$part"*)
done
mapfile -t sources < <(find "${sources[@]}" -name '*.cpp' | sort)
measure() { llvm-cov "$1" "${programs[@]:1}" -instr-profile="$reached/all.profdata" "${@:2}" "${sources[@]}"; }
measure export -format=lcov >"$reached/lines.lcov"
measure export -summary-only >"$reached/summary.json"
python3 -c '
import sys
for line in sys.stdin:
    if line.startswith("SF:"):
        path = line[3:].strip()
        text = open(path).read().split("\n")
    elif line.startswith("DA:") and line.split(",")[1].strip() == "0":
        number = int(line[3:].split(",")[0])
        print("{}:{}: {}".format(path.removeprefix(sys.argv[1] + "/"), number, text[number - 1]))
' "$PWD" <"$reached/lines.lcov" >"$reached/lines.txt"
python3 -c '
import json, sys
top, most_missing = sys.argv[1] + "/", float(sys.argv[2])
total = json.load(sys.stdin)["data"][0]
for file in sorted(total["files"], key=lambda file: file["summary"]["lines"]["percent"]):
    lines = file["summary"]["lines"]
    print("{:6.1f} % of {:4} lines  {}".format(lines["percent"], lines["count"], file["filename"].removeprefix(top)))
lines = total["totals"]["lines"]
print("{:6.1f} % of {} lines in all, at least {:.0f} %".format(lines["percent"], lines["count"], 100 - most_missing))
sys.exit(lines["percent"] < 100 - most_missing)
' "$PWD" "$most_missing" <"$reached/summary.json"
