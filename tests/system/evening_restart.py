"""An evening with a restart: ties, recent files, a compilation, the MIDI output, the places of windows and the language are
what they were when the program ended; and what the driver reads from the settings is what the bus tells.
"""
import os
import shutil

from driver import Driver
from evening import Instrument, live, picture
from reader import Reader
from waiting import await_value, expect, wait_for

KEYBOARD = "Velluto v 1.1 - &"
FILES = {"One.pcg": "Full-64.pcg", "Two.sty": "Sparse-5.sty", "Three.prf": "Sparse-8.prf"}
# Not shorter than the player's folder: a shorter name comes back with the rest of that behind it, and is not found again.
NAME = "All the songs that were played this evening"
COMPILATION = b"\x01%s\x00Song.mid\x00\xff"
# One note of half a beat, in one track.
SONG = (
    b"MThd\x00\x00\x00\x06\x00\x00\x00\x01\x00\x60MTrk\x00\x00\x00\x0c"
    b"\x00\x90\x3c\x64\x30\x80\x3c\x40\x00\xff\x2f\x00"
)


def find_titled(reader, beginning):
    """The window whose title begins so."""
    return wait_for(
        f"the window {beginning}...", lambda: next((w for w in reader.windows if w.name.startswith(beginning)), None))


def open_keyboard(reader, entry):
    reader.choose(entry[0], entry[1])
    return find_titled(reader, KEYBOARD)


def open_player(reader):
    reader.click(reader.bar_entry("MIDI PLAYER"))
    return find_titled(reader, "MIDI PLAYER")


def first_evening(reader, home):
    """Leaves all that is to be found again. Gives the places of the windows."""
    for name, button in (("One.pcg", "User 2"), ("Two.sty", "Direct HD 3"), ("Three.prf", "User 7")):
        reader.press("ctrl+a")
        reader.choose_file("Velluto v 1.1- Open File", os.path.join(home, name))
        reader.await_frame()
        reader.click(reader.button(button, find_titled(reader, f"File User: {name}")))
    reader.choose("Preferences", "MIDI out device", "Instrument:midi_in")
    places = {}
    keyboard = open_keyboard(reader, ("View", "Keyboard"))
    reader.move(keyboard, 0, 420)
    places["keyboard"] = keyboard.rect
    player = open_player(reader)
    reader.move(player, 300, 120)
    places["player"] = player.rect
    compile_song(reader, player)
    window = reader.bring_up("File User: One.pcg (1)")
    reader.move(window, 60, 90)
    places["file"] = window.rect
    reader.choose("Preferences", "Language", "Italian")
    reader.answer("Change language", "The change will take place next time you will run the programme", "OK")
    expect("checked" in reader.looked_at("Preferences", "Language")["Italian"], True, "Italian is checked")
    picture(reader.pictures, "evening-before-restart")
    reader.choose("File", "Exit")
    reader.await_end()
    return places


def compile_song(reader, player):
    name = reader.get("text", "Name of the compilation", player)
    reader.click(reader.button("New", player))
    reader.click(name)
    wait_for("the name's focus", lambda: name.has("focused"))
    reader.type(NAME)
    await_value(NAME, "the name", lambda: name.text)
    panel = reader.get("check box", "Selezione Files", player)
    reader.click(panel)
    listing = reader.find_files(player)
    reader.click_row(listing, 0)
    reader.click(reader.button("Add sel.", player))
    chosen = reader.list_of(player, "Files of the compilation")
    await_value([f"Song.mid ({len(SONG)})"], "the compilation", lambda: [n.name for n in chosen.children])
    reader.click_row(chosen, 0)
    reader.click(panel)
    wait_for("the panel's end", lambda: not panel.has("checked"))


def check_menus(reader, driver):
    """Every entry that the driver sees after the same settings is on the bus under its words."""
    spoken = {n.name.split("\t")[0] for n in reader.menu_bar.walk() if n.role == "menu item"}
    for name, entry in driver.ask("menus")["menus"].items():
        words = entry["caption"].replace("&", "", 1)
        if entry["visible"] and words != "-" and not name.startswith("mnuDevMIDI") and words not in spoken:
            expect(sorted(spoken), words, f"{name} among the menus")


def second_evening(reader, heard, home, places, driver):
    check_menus(reader, driver)
    entries = reader.looked_at("Preferenze", "Dispositivo MIDI di uscita")
    expect("checked" in entries["Instrument:midi_in"], True, "the output is the one chosen")
    recent = list(reader.looked_at("File"))[-3:]
    expect([entry.split("/")[-1] for entry in recent], ["Three.prf", "Two.sty", "One.pcg"], "the recent files")

    keyboard = open_keyboard(reader, ("Visualizza", "Tastiera"))
    expect(keyboard.rect, places["keyboard"], "the keyboard's place")
    heard.known = len(heard.messages())
    player = open_player(reader)
    expect(player.rect, places["player"], "the player's place")
    listing = reader.list_of(player, "Compilation")
    await_value([NAME, "Velluto"], "the compilations", lambda: [n.name for n in listing.children])
    chosen = reader.list_of(player, "File della compilation")
    await_value([f"Song.mid ({len(SONG)})"], "the compilation's files", lambda: [n.name for n in chosen.children])
    await_value("MIDI PLAYER - Song.mid", "the player's title", lambda: player.name)

    reader.choose("File", recent[2])
    window = find_titled(reader, "File User: One.pcg")
    expect(window.rect, places["file"], "the file's place")
    reader.choose("Visualizza", "H User 2: One.pcg")
    bank = find_titled(reader, "Banco User 2: One.pcg")
    expect("checked" in reader.looked_at("Modifica")["OFF"], True, "a bank begins a later run without a role")
    reader.choose("Modifica", "UP.1")
    heard.known = len(heard.messages())
    reader.click_row(reader.list_of(bank), 63)
    heard.expect("row 63 of User 2", "B0 00 79", "B0 20 41", "C0 3F")
    picture(reader.pictures, "evening-after-restart")
    reader.press("alt+F4")
    reader.await_end()


def evening(program, driver, stage, pictures):
    home = os.path.join(stage, "home")
    for name, sample in FILES.items():
        shutil.copyfile(os.path.join(home, "samples", sample), os.path.join(home, name))
    with open(os.path.join(home, "Song.mid"), "wb") as song:
        song.write(SONG)
    heard = Instrument(stage)
    reader = Reader(program, home, os.path.join(stage, "program.log"))
    reader.pictures = pictures
    reader.start_in_english()
    places = first_evening(reader, home)
    with open(os.path.join(home, "Velluto-devices.txt"), encoding="utf-8") as file:
        devices = file.read().splitlines()
    expect("out 6 * Instrument:midi_in" in devices, True, "the output's number, kept")
    expect("in 0 - Instrument:midi_out" in devices, True, "the input's number, kept")
    with open(os.path.join(home, f"c-{NAME}.cmp"), "rb") as file:
        expect(file.read(), COMPILATION % home.encode(), "the compilation's bytes")
    reader = Reader(program, home, os.path.join(stage, "program.log"))
    reader.pictures = pictures
    reader.await_frame()
    with Driver(driver, os.path.join(stage, "paper"), home) as paper:
        second_evening(reader, heard, home, places, paper)


live(evening)
