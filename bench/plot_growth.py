#!/usr/bin/env python3
"""Draws how cost grows: what bench_growth has measured, as a picture with both axes logarithmic.

    plot_growth.py JSON SVG    JSON: what --benchmark_out wrote; SVG: the picture to write

Each line is one command: its time over once, four and sixteen times the work, as times of the first. The grey line is what is
linear; the pale one above it has the logarithm of sorting.
"""
import json
import math
import sys

WIDTH, HEIGHT = 760, 460
LEFT, RIGHT, TOP, BOTTOM = 60, 250, 30, 50
MOST = 32  # times the work or the time
COLOURS = ["#8b1e3f", "#1f6f8b", "#c77d0a", "#3c7a3f", "#6b4fa0", "#b0492d", "#2f8f83", "#555555", "#a63a7a"]
NAMES = {
    "OpenStyles": "open Styles, 15 MiB",
    "PasteStyles": "Paste, 15 MiB",
    "CutStyle": "Cut, 15 MiB",
    "ReadSong": "song, 1,000,000 events",
    "OpenCompilation": "compilation, 10,000 files",
    "OpenSongFolder": "folder, 100,000 files",
    "ListFolders": "tool list, 8,000 files",
    "FindInFolders": "tool find, 8,000 files",
    "ImportSounds": "tool import, 65,536 names",
}


def across(work):
    return LEFT + (WIDTH - LEFT - RIGHT) * math.log(work) / math.log(16)


def up(time):
    return HEIGHT - BOTTOM - (HEIGHT - TOP - BOTTOM) * math.log(time) / math.log(MOST)


def line(points, style):
    return f'<polyline fill="none" {style} points="{" ".join(f"{across(x):.1f},{up(y):.1f}" for x, y in points)}"/>'


def read(path):
    """Milliseconds of the processor by name and work: the median where there is one."""
    with open(path, encoding="utf-8") as file:
        runs = json.load(file)["benchmarks"]
    taken = {}
    for run in runs:
        if run["run_type"] == "iteration" and run["repetitions"] > 1:
            continue
        if run.get("aggregate_name", "median") == "median" and not run.get("error_occurred"):
            name, work = run["run_name"].split("/")[:2]
            taken.setdefault(name, {})[int(work)] = run["cpu_time"]
    return taken


def main():
    taken = read(sys.argv[1])
    out = [
        f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {HEIGHT}" font-family="sans-serif" font-size="13">',
        f'<rect width="{WIDTH}" height="{HEIGHT}" fill="#ffffff"/>',
    ]
    for work in (1, 4, 16):
        x = across(work)
        out.append(f'<line x1="{x}" y1="{TOP}" x2="{x}" y2="{HEIGHT - BOTTOM}" stroke="#dddddd"/>')
        out.append(f'<text x="{x}" y="{HEIGHT - BOTTOM + 20}" text-anchor="middle">{work}</text>')
        out.append(f'<line x1="{LEFT}" y1="{up(work):.1f}" x2="{WIDTH - RIGHT}" y2="{up(work):.1f}" stroke="#dddddd"/>')
        out.append(f'<text x="{LEFT - 8}" y="{up(work) + 4:.1f}" text-anchor="end">{work}</text>')
    out.append(f'<text x="{(LEFT + WIDTH - RIGHT) / 2}" y="{HEIGHT - 10}" text-anchor="middle">times the work</text>')
    out.append(f'<text x="{LEFT}" y="{TOP - 10}" text-anchor="middle">times the time</text>')
    works = [1, 2, 4, 8, 16]
    out.append(line([(w, w) for w in works], 'stroke="#999999" stroke-width="4"'))
    out.append(line([(w, w * (1 + math.log(w) / math.log(6250))) for w in works], 'stroke="#dddddd" stroke-width="4"'))
    for place, (name, times) in enumerate(sorted(taken.items(), key=lambda item: -item[1].get(16, 0) / item[1].get(1, 1))):
        colour = COLOURS[place % len(COLOURS)]
        points = [(work, times[work] / times[1]) for work in sorted(times)]
        out.append(line(points, f'stroke="{colour}" stroke-width="1.5"'))
        out.extend(f'<circle cx="{across(x):.1f}" cy="{up(y):.1f}" r="3" fill="{colour}"/>' for x, y in points)
        y = TOP + 20 + 22 * place
        out.append(f'<rect x="{WIDTH - RIGHT + 20}" y="{y - 9}" width="10" height="10" fill="{colour}"/>')
        out.append(f'<text x="{WIDTH - RIGHT + 36}" y="{y}">{NAMES.get(name, name)}: {points[-1][1]:.1f}</text>')
    out.append("</svg>")
    with open(sys.argv[2], "w", encoding="utf-8") as file:
        file.write("\n".join(out) + "\n")
    return 0


if __name__ == "__main__":
    sys.exit(main())
