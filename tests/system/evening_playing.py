"""An evening of playing: the on-screen keyboard and the MIDI player sound at once, and the instrument hears every byte of both.
A compilation plays through; windows that close and the end of the program leave no note sounding.
"""
import os
import time

from evening import Instrument, live, picture
from reader import DOUBLE_CLICK, RIGHT_CLICK, SHIFT_CLICK, Reader
from waiting import await_value, expect, tool, wait_for

DIVISION = 96  # parts to the beat
BEAT = 100000  # microseconds
QUARTER, PAUSE = 96, 0
KEYBOARD = "Velluto v 1.1 - &Keyboard"
# The sliders as they are at the first start: a value other than 0 goes out twice, and the velocities send the pan again.
OPENING = (
    "B0 07 64", "B0 07 64", "B0 0A 40", "B0 0A 40", "B0 0A 40", "B0 0A 40", "B0 0A 40", "B0 0A 40", "B0 49 00", "B0 48 00",
    "E0 7F 40", "E0 7F 40", "B0 01 00", "B0 02 00", "B0 5B 00", "B0 5D 00",
)


def song(path, channel, keys):
    """A MIDI file of one track: a program change and the keys, a beat each. Gives what is to be heard of it."""
    number = channel - 1
    track = bytearray(b"\x00\xff\x51\x03" + BEAT.to_bytes(3, "big"))
    track += bytes([0, 0xC0 | number, 12])
    heard = [f"C{number:X} 0C"]
    for key in keys:
        track += bytes([PAUSE, 0x90 | number, key, 100, QUARTER, 0x80 | number, key, 64])
        heard += [f"9{number:X} {key:02X} 64", f"8{number:X} {key:02X} 40"]
    track += b"\x00\xff\x2f\x00"
    with open(path, "wb") as file:
        file.write(b"MThd" + bytes([0, 0, 0, 6, 0, 0, 0, 1, 0, DIVISION]) + b"MTrk" + len(track).to_bytes(4, "big") + track)
    return heard


class Ears:
    """The recorder's messages, the keyboard's (channel 1) and the player's (all others) apart."""

    def __init__(self, stage):
        self.instrument = Instrument(stage)
        self.known = [0, 0]

    def messages(self, of_player):
        return [m for m in self.instrument.messages() if (m[1] != "0") == of_player]

    def expect(self, of_player, what, wanted):
        await_value(list(wanted), what, lambda: self.messages(of_player)[self.known[of_player] :])
        self.known[of_player] += len(wanted)

    def keyboard(self, what, *wanted):
        self.expect(False, what, wanted)

    def player(self, what, wanted):
        self.expect(True, what, wanted)

    def await_silence(self, what):
        wait_for(f"silence after {what}", lambda: not self.instrument.sounding())


def open_keyboard(reader):
    reader.choose("View", "Keyboard")
    return reader.window(KEYBOARD)


def open_player(reader):
    reader.click(reader.bar_entry("MIDI PLAYER"))
    return wait_for("the player", lambda: next((w for w in reader.windows if w.name.startswith("MIDI PLAYER")), None))


def keys(reader, window):
    """The piano's 61 keys: a group of buttons."""
    panels = [n for n in window.walk() if n.role == "panel" and n.name == "Keyboard"]
    piano = wait_for("the piano", lambda: next((n for n in panels if len(n.children) == 61), None))
    names = ["C/Do (36)", "C#/Do# (37)", "C/Do (60)", "C/Do (96)"]
    expect([piano.child(i).name for i in (0, 1, 24, 60)], names, "the names of the keys")
    return piano


def double_click(reader, listing, row, is_heard):
    """Until the row's file is heard: on a busy machine two clicks may come too far apart to be one."""

    def comes():
        reader.click_row(listing, row, *DOUBLE_CLICK)
        end = time.monotonic() + 1
        while not is_heard() and time.monotonic() < end:
            time.sleep(0.02)
        return is_heard()

    wait_for(f"the file of row {row}", comes)


def play_both(reader, ears, keyboard, player, wanted):
    """While a file plays, keys are pressed: a click, one held over another's, and one by the bus."""
    piano = keys(reader, keyboard)
    listing = reader.find_files(player)
    await_value(["A.mid", "B.mid", "Long.mid"], "the files", lambda: [n.name.split()[0] for n in listing.children])
    reader.click_row(listing, 0)
    reader.click(reader.button("Play", player))
    ears.player("the first file", wanted["A.mid"])
    double_click(reader, listing, 1, lambda: len(ears.messages(True)) > ears.known[True])
    reader.bring_up(KEYBOARD)
    reader.click(piano.child(24))
    ears.keyboard("a click on a key", "90 3C 40", "80 3C 40")
    reader.click(piano.child(28), "mousedown", "1")
    ears.keyboard("a key held", "90 40 40")
    wait_for("the key on the bus", lambda: piano.child(28).has("pressed"))
    picture(reader.pictures, "evening-playing")
    tool("xdotool", "mouseup", "1")
    ears.keyboard("and let go", "80 40 40")
    piano.child(0).do()
    ears.keyboard("a key pressed by the bus", "90 24 40", "80 24 40")
    ears.player("the second file", wanted["B.mid"])
    expect(ears.instrument.sounding(), set(), "the notes still sounding")


def latch_and_slide(reader, ears, keyboard):
    """Notes are held by the box; a slider is led by keys; All Notes Off ends all."""
    hold = reader.get("check box", "Hold Note", keyboard)
    reader.click(hold)
    wait_for("Hold Note", lambda: hold.has("checked"))
    ears.keyboard("the change of the box", "B0 7B 00")
    piano = keys(reader, keyboard)
    for key in (12, 16, 19):
        reader.click(piano.child(key))
    ears.keyboard("a chord held", "90 30 40", "90 34 40", "90 37 40")
    slider = reader.get("slider", "Reverb", keyboard)
    volume = reader.get("slider", "Volume", keyboard)
    reader.click(volume, *RIGHT_CLICK)  # the focus, with a button that moves nothing
    wait_for("the focus of the slider that was clicked", lambda: volume.has("focused"))
    slider.ask(lambda a: a.grab_focus(), None)
    wait_for("the slider's focus", lambda: slider.has("focused"))
    reader.press("Up", "Up", "Up")
    ears.keyboard("a slider led by keys", "B0 5B 01", "B0 5B 02", "B0 5B 03")
    await_value(3.0, "the slider on the bus", lambda: slider.value)
    reader.click(reader.button("All Notes Off", keyboard))
    ears.keyboard("all notes off", "B0 7B 00")
    reader.click(hold)
    ears.keyboard("the change of the box", "B0 7B 00")


def compile_and_play(reader, ears, player, wanted):
    """A compilation by name, with two files; it plays from one to the other, and stops."""
    name = reader.get("text", "Name of the compilation", player)
    reader.click(reader.button("New", player))
    reader.click(name)
    wait_for("the name's focus", lambda: name.has("focused"))
    reader.type("Evening")
    await_value("Evening", "the name", lambda: name.text)
    listing = reader.find_files(player)
    reader.click_row(listing, 0)
    reader.click_row(listing, 1, *SHIFT_CLICK)
    reader.click(reader.button("Add sel.", player))
    chosen = reader.list_of(player, "Files of the compilation")
    await_value(["A.mid", "B.mid"], "the compilation", lambda: [n.name.split()[0] for n in chosen.children])
    reader.click_row(chosen, 0)
    reader.click(reader.get("check box", "Play all", player))
    reader.click(reader.button("Play", player))
    ears.player("the compilation", wanted["A.mid"] + wanted["B.mid"])


def end_all(reader, ears, keyboard, player):
    """A stop, a window closed under a held key, a player closed as it plays, and the program left as it plays."""
    reader.click(reader.button("Stop", player))
    ears.await_silence("the stop")
    play_long(reader, ears, player)
    reader.bring_up(KEYBOARD)
    piano = keys(reader, keyboard)
    reader.click(piano.child(5), "mousedown", "1")
    ears.keyboard("a key held", "90 29 40")
    tool("xdotool", "key", "ctrl+w")
    ears.keyboard("the keyboard closed under it", "B0 7B 00")
    tool("xdotool", "mouseup", "1")
    reader.bring_up(player.name)
    reader.press("ctrl+w")
    wait_for("the end of the player", lambda: not reader.windows)
    ears.await_silence("the end of the player")
    play_long(reader, ears, open_player(reader))
    reader.choose("File", "Exit")


def play_long(reader, ears, player):
    """Until it is heard."""
    ears.known[True] = len(ears.messages(True))
    double_click(reader, reader.find_files(player), 2, lambda: any(channel == 3 for channel, _ in ears.instrument.sounding()))


def evening(program, driver, stage, pictures):
    home = os.path.join(stage, "home")
    wanted = {
        "A.mid": song(os.path.join(home, "A.mid"), 2, [60, 62, 64]),
        "B.mid": song(os.path.join(home, "B.mid"), 3, list(range(40, 80))),
        "Long.mid": song(os.path.join(home, "Long.mid"), 4, [50, 55] * 1000),
    }
    reader = Reader(program, home, os.path.join(stage, "program.log"))
    reader.pictures = pictures
    ears = Ears(stage)
    reader.start_in_english()
    reader.choose("Preferences", "MIDI out device", "Instrument:midi_in")
    keyboard = open_keyboard(reader)
    ears.keyboard("the opening of the keyboard", *OPENING)
    player = open_player(reader)
    left, top, _, _ = player.rect
    reader.move(player, left, top + 260)
    reader.click(reader.get("check box", "Selezione Files", player))
    play_both(reader, ears, keyboard, player, wanted)
    latch_and_slide(reader, ears, keyboard)
    compile_and_play(reader, ears, player, wanted)
    end_all(reader, ears, keyboard, player)
    reader.await_end()
    ears.await_silence("the end of the program")


live(evening)
