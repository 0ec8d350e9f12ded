"""An evening of files and banks: eight files of each kind are opened, each row of them is read on the bus; some are tied to
user banks and recalled from the banks' windows, which the instrument hears; the windows are minimised, maximised, tiled and
cascaded.
"""
import os
import shutil

from driver import Driver
from evening import Instrument, live, picture
from reader import Reader
from waiting import expect, wait_for

SAMPLES = {
    "pcg": ["Full-64", "Full-128", "Sparse-64", "Sparse-128", "Accents-64", "Empty", "Full-64", "Sparse-64"],
    "sty": ["Grouped-16", "Interleaved-16", "Only-16", "Sparse-5", "Single", "Large-3", "Grouped-16", "Single"],
    "prf": ["Full-8", "Sparse-8", "Accents-8", "Empty", "Full-8", "Sparse-8", "Accents-8", "Full-8"],
}


def copies(home):
    """Eight files of each kind, under names of their own: P1.pcg, S1.sty, R1.prf and so on."""
    paths = {}
    for kind, letter in (("pcg", "P"), ("sty", "S"), ("prf", "R")):
        paths[kind] = [os.path.join(home, f"{letter}{i}.{kind}") for i in range(1, 9)]
        for sample, path in zip(SAMPLES[kind], paths[kind]):
            shutil.copyfile(os.path.join(home, "samples", f"{sample}.{kind}"), path)
    return paths


def title_of(path, number):
    name = os.path.basename(path)
    return f"File User: {name}" + {"pcg": f" ({number})", "sty": "   (STY)", "prf": ""}[name[-3:]]


def open_all(reader, driver, paths):
    """By the three Open commands; each window's rows are those that the program has."""
    for kind, command in (("sty", "Open sty"), ("prf", "Open prf"), ("pcg", "Open pcg")):
        for number, path in enumerate(paths[kind], 1):
            if kind == "pcg":
                reader.press("ctrl+a")
            else:
                reader.choose("File", command)
            reader.choose_file("Velluto v 1.1- Open File", path)
            reader.window(title_of(path, number))
            reader.await_frame()
        driver.open(*paths[kind])
    entries = reader.looked_at("File")
    for command in ("Open pcg", "Open sty", "Open prf"):
        expect("enabled" in entries[command], False, f"{command} with eight files open")
    expect(len(reader.windows), 24, "the number of windows")
    for kind in paths:
        for number, path in enumerate(paths[kind], 1):
            title = title_of(path, number)
            expect(reader.rows_of(reader.window(title)), driver.rows(title), f"the rows of {title}")


def tie(reader, paths):
    for title, button in (
        (title_of(paths["pcg"][0], 1), "User 1"),
        (title_of(paths["pcg"][3], 4), "User 2"),
        (title_of(paths["sty"][0], 1), "User 1"),
        (title_of(paths["sty"][3], 4), "Direct HD 9"),
        (title_of(paths["prf"][0], 1), "User 1"),
        (title_of(paths["prf"][2], 3), "User 20"),
    ):
        reader.click(reader.button(button, reader.bring_up(title)))


def recall(reader, heard):
    """Program change and the banks' numbers before it, for banks of each kind."""
    reader.choose("Preferences", "MIDI out device", "Instrument:midi_in")
    for path, title, row, wanted in (
        (("G User 1: P1.pcg",), "Banco User 1: P1.pcg", 4, ("B0 00 79", "B0 20 40", "C0 04")),
        (("H User 2: P4.pcg",), "Banco User 2: P4.pcg", 126, ("B0 00 79", "B0 20 41", "C0 7E")),
        (("2 User 1: S1.sty",), "Banco User 1: S1.sty   (STY)", 2, ("B1 00 00", "B1 20 11", "C1 02")),
        (("6 Direct HD 1-9", "9 S4.sty"), "Banco Direct HD 9: S4.sty   (STY)", 7, ("B1 00 00", "B1 20 1C", "C1 07")),
        (("User 1-20", "1 R1.prf"), "Banco User 1: R1.prf", 1, ("B1 00 01", "B1 20 00", "C1 01")),
        (("User 1-20", "20 R3.prf"), "Banco User 20: R3.prf", 7, ("B1 00 01", "B1 20 13", "C1 07")),
        (("0 Style 1-8",), "Banks 1: Style 1-8 ", 2, ("B1 00 00", "B1 20 00", "C1 00")),
    ):
        reader.choose("View", *path)
        window = reader.window(title)
        reader.click_row(reader.list_of(window), row)
        heard.expect(f"row {row} of {title}", *wanted)


def overlap(one, other):
    return all(one[i] < other[i] + other[i + 2] and other[i] < one[i] + one[i + 2] for i in (0, 1))


def leave_four(reader, paths):
    """All windows but those of four files are closed; then files can be opened again."""
    for title in reader.titles:
        if title not in [title_of(paths["prf"][i], i + 1) for i in range(4)]:
            reader.bring_up(title)
            reader.press("ctrl+w")
            wait_for(f"the end of {title}", lambda t=title: t not in reader.titles)
    expect(len(reader.windows), 4, "the number of windows")
    expect("enabled" in reader.looked_at("File")["Open pcg"], True, "Open pcg after the files were closed")


def arrange(reader, pictures):
    """Minimised, maximised and restored by the windows' menus; tiled without an overlap, cascaded each beside the one below it."""
    window = reader.windows[0]
    reader.bring_up(window.name)
    place = window.rect
    for entry, arrived in (
        ("Minimize", lambda: window.rect[3] < place[3] / 2),
        ("Restore", lambda: window.rect == place),
        ("Maximize", lambda: window.rect[2] == reader.frame.rect[2]),
        ("Restore", lambda: window.rect == place),
    ):
        reader.press("alt+minus")
        menu = wait_for("the window's menu", lambda: next((n for n in window.children if n.role == "popup menu"), None))
        reader.click(reader.entry(menu, entry))
        wait_for(f"the window after {entry}", arrived)

    def places():
        return [w.rect for w in reader.windows]

    for entry in ("Tile Horizontal", "Tile Vertical"):
        reader.choose("Window", entry)
        wait_for(entry, lambda: not any(overlap(a, b) for i, a in enumerate(places()) for b in places()[:i]))
        picture(pictures, f"evening-{entry.split()[1].lower()}")
    reader.choose("Window", "Cascade")
    wait_for("a cascade", lambda: all(b[0] > a[0] and b[1] > a[1] for a, b in zip(sorted(places()), sorted(places())[1:])))
    picture(pictures, "evening-cascade")


def unchanged(home, paths):
    """Looking at files changes none of them."""
    for kind in paths:
        for sample, path in zip(SAMPLES[kind], paths[kind]):
            sample_path = os.path.join(home, "samples", f"{sample}.{kind}")
            with open(sample_path, "rb") as wanted, open(path, "rb") as found:
                expect(found.read() == wanted.read(), True, f"{path} is as it was")


def evening(program, driver, stage, pictures):
    home = os.path.join(stage, "home")
    paths = copies(home)
    reader = Reader(program, home, os.path.join(stage, "program.log"))
    heard = Instrument(stage)
    reader.start_in_english()
    with Driver(driver, os.path.join(stage, "paper"), home) as paper:
        open_all(reader, paper, paths)
    picture(pictures, "evening-files")
    tie(reader, paths)
    recall(reader, heard)
    leave_four(reader, paths)
    arrange(reader, pictures)
    reader.press("alt+F4")
    reader.await_end()
    unchanged(home, paths)


live(evening)
