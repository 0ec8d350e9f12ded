"""An evening of looking around: every window of the program is opened, and all that the keyboard reaches in it has a name on the
bus, in both languages.
"""
import os
import shutil

from evening import live, picture
from reader import Reader
from waiting import await_value, expect, wait_for

FILES = {"One.pcg": "Full-128.pcg", "Two.sty": "Grouped-16.sty", "Three.prf": "Full-8.prf"}
WINDOWS = {
    "English": (
        ("View", "A: Piano, E.Piano, Mallet/Bell, Accordion"), ("View", "F: Drum/Perc, SFX"), ("View", "1 Style 9-16"),
        ("View", "5 User All"), ("View", "User All"), ("View", "MIDI Messages"), ("View", "Keyboard"), ("MIDI PLAYER",),
        ("Preferences", "MIDI setup"), ("Notebook",), ("?", "User's Guide"), ("File", "New pcg (64)"), ("File", "New sty"),
        ("File", "New prf"),
    ),
    "Italian": (
        ("Visualizza", "5 User All"), ("Visualizza", "User All"), ("Visualizza", "Messaggi MIDI"), ("Visualizza", "Tastiera"),
        ("MIDI PLAYER",), ("Preferenze", "MIDI setup"), ("Blocco Note",), ("?", "Guida Utente"),
    ),
}


def open_window(reader, path):
    known = len(reader.windows)
    if len(path) == 1:
        reader.click(reader.bar_entry(path[0]))
    else:
        reader.choose(*path)
    wait_for(f"the window of {path}", lambda: len(reader.windows) == known + 1)
    window = reader.windows[-1]
    wait_for(f"{window} active", lambda: window.has("active"))
    return window


def look_at(reader, window):
    """Its title, its place, and names for all of it."""
    expect(bool(window.name), True, "a title")
    nodes = list(window.walk())
    reached = [n for n in nodes if n.has("showing", "focusable")]
    expect(bool(reached), True, f"something that the keyboard reaches in {window}")
    expect(reader.nameless(window), [], f"what has no name in {window}")
    frames = [n for n in nodes if n.role == "frame"]
    expect(frames, [], f"what passes for one more window in {window}")
    for listing in (n for n in reached if n.role == "list"):
        expect([row for row in listing.children if row.role != "list item"], [], f"rows of {listing} that are none")


def look_around(reader, language, pictures):
    for path in WINDOWS[language]:
        look_at(reader, open_window(reader, path))
    picture(pictures, f"evening-names-{language.lower()}")


def evening(program, driver, stage, pictures):
    home = os.path.join(stage, "home")
    for name, sample in FILES.items():
        shutil.copyfile(os.path.join(home, "samples", sample), os.path.join(home, name))
    reader = Reader(program, home, os.path.join(stage, "program.log"))
    reader.start_in_english()
    for name, button in (("One.pcg", "User 1"), ("Two.sty", "User 3"), ("Three.prf", "User 1")):
        reader.press("ctrl+a")
        dialog = reader.dialog("Velluto v 1.1- Open File")
        expect(bool(wait_for("the dialog's controls", lambda: [n for n in dialog.walk() if n.role == "push button"])), True, "buttons")
        reader.choose_file("Velluto v 1.1- Open File", os.path.join(home, name))
        reader.await_frame()
        window = wait_for(f"the window of {name}", lambda n=name: next((w for w in reader.windows if n in w.name), None))
        look_at(reader, window)
        reader.click(reader.button(button, window))
    look_around(reader, "English", pictures)
    reader.choose("Preferences", "Language", "Italian")
    reader.answer("Change language", "The change will take place next time you will run the programme", "OK")
    reader.press("alt+F4")
    reader.await_end()
    reader = Reader(program, home, os.path.join(stage, "program.log"))
    wait_for("the frame", lambda: reader.frame)
    reader.await_frame()
    await_value("Visualizza", "a menu in Italian", lambda: reader.menu_bar.child(2).name)
    look_around(reader, "Italian", pictures)
    reader.press("alt+F4")
    reader.await_end()


live(evening)
