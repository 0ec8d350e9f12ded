"""An evening without a mouse: files opened, a bank tied and recalled, Programs copied and cut, a file saved, windows minimised,
maximised and closed, and the program left, all by keys.
"""
import os
import shutil

from driver import Driver
from evening import Instrument, live
from reader import Reader
from waiting import await_value, expect, fail, wait_for

CHANGED = "The file has changed\nSave changes ?"
ONE, TWO, BANK = "File User: One.pcg (1)", "File User: Two.pcg (2)", "Banco User 2: One.pcg"
MOST_STEPS = 60


class Keys:
    """Keys alone: what is reached is what the bus says has the focus."""

    def __init__(self, reader):
        self.reader = reader

    def menu(self, letter, *path):
        """Alt and the letter, Down to each entry, Right into a submenu, Return."""
        self.reader.press(f"alt+{letter}")
        popup = wait_for("the menu", self.dropped)
        for depth, name in enumerate(path):
            item = wait_for(f"the entry {name}", lambda p=popup, n=name: self.reader.find_entry(p, n))
            self.step_to_entry(popup, item)
            if depth < len(path) - 1:
                self.reader.press("Right")
                popup = self.reader.popup_of(item)
        self.reader.press("Return")
        wait_for("the end of the menu", lambda: not self.dropped())

    def dropped(self):
        bar = self.reader.menu_bar
        popups = (p for n in (bar.children if bar else []) for p in n.children if p.role == "popup menu")
        return next((p for p in popups if p.has("showing")), None)

    def step_to_entry(self, popup, item):
        for _ in range(MOST_STEPS):
            if item.has("focused"):
                return
            before = self.focused_entry(popup)
            self.reader.press("Down")
            wait_for("the next entry", lambda: self.focused_entry(popup) != before)
        fail(f"no way to {item} by Down")

    @staticmethod
    def focused_entry(popup):
        return next((n.name for n in popup.children if n.has("focused")), None)

    def tab_to(self, window, role, name):
        node = self.reader.get(role, name, window)
        for _ in range(MOST_STEPS):
            if node.has("focused"):
                return node
            before = self.focused_control(window)
            self.reader.press("Tab")
            wait_for("the next control", lambda: self.focused_control(window) != before)
        fail(f"no way to {node} by Tab")

    @staticmethod
    def focused_control(window):
        return next((str(n) for n in window.walk(lambda n: n.role != "list") if n.has("focused")), None)

    def row(self, window, row):
        """Home, and Down as often as it takes."""
        listing = self.tab_to(window, "list", "Program")
        self.reader.press("Home")
        wait_for("the first row", lambda: listing.child(0).has("selected"))
        for number in range(1, row + 1):
            self.reader.press("Down")
            wait_for(f"row {number}", lambda n=number: listing.child(n).has("selected"))
        return listing

    def next_window(self, title):
        window = self.reader.window(title)
        for _ in range(MOST_STEPS):
            if window.has("active"):
                return window
            before = self.active()
            self.reader.press("ctrl+Tab")
            wait_for("the next window", lambda: self.active() != before)
        fail(f"no way to {title} by Ctrl+Tab")

    def active(self):
        return next((w.name for w in self.reader.windows if w.has("active")), None)

    def window_menu(self, window, letter):
        """The window's own menu, by Alt and the minus."""
        self.reader.press("alt+minus")
        popup = wait_for("the window's menu", lambda: next((n for n in window.children if n.role == "popup menu"), None))
        self.reader.press(letter)
        wait_for("the end of the menu", lambda: not popup.has("showing"))


def open_and_tie(keys, reader, home):
    for name, title in (("One.pcg", ONE), ("Two.pcg", TWO)):
        reader.press("ctrl+a")
        reader.choose_file("Velluto v 1.1- Open File", os.path.join(home, name))
        reader.window(title)
        reader.await_frame()
    one = keys.next_window(ONE)
    keys.tab_to(one, "push button", "User 2")
    reader.press("space")


def recall(keys, reader, heard):
    """The arrows select on the instrument at each step."""
    keys.menu("p", "MIDI out device", "Instrument:midi_in")
    keys.menu("v", "H User 2: One.pcg")
    bank = reader.window(BANK)
    wait_for("the bank", lambda: bank.has("active"))
    keys.row(bank, 2)
    heard.expect("three rows of User 2", *(m for row in range(3) for m in ("B0 00 79", "B0 20 41", f"C0 {row:02X}")))
    reader.press("ctrl+w")
    await_value([ONE, TWO], "the windows", lambda: reader.titles)


def edit(keys, reader, paper):
    """Three Programs are copied with Shift and the arrows, and pasted in the other file; one is cut by the Delete key."""
    one = keys.next_window(ONE)
    listing = keys.row(one, 4)
    for row in (5, 6):
        reader.press("shift+Down")
        wait_for(f"row {row} too", lambda r=row: listing.child(r).has("selected"))
    reader.press("ctrl+c")
    two = keys.next_window(TWO)
    listing = keys.row(two, 5)
    for row in (6, 7):
        reader.press("shift+Down")
        wait_for(f"row {row} too", lambda r=row: listing.child(r).has("selected"))
    reader.press("ctrl+v")
    for command in ("activate frmPcgUN(1)", "click frmPcgUN(1) List1 4", "shiftclick frmPcgUN(1) List1 6", "menu mnuCopia",
                    "activate frmPcgUN(2)", "click frmPcgUN(2) List1 5", "shiftclick frmPcgUN(2) List1 7", "menu mnuIncolla"):
        paper.ask(command)
    await_value(paper.rows(TWO), "the rows pasted", lambda: reader.rows_of(two))
    keys.row(two, 2)
    reader.press("Delete")
    for command in ("click frmPcgUN(2) List1 2", "key frmPcgUN(2) List1 Delete", "menu mnuSalva"):
        paper.ask(command)
    await_value(paper.rows(TWO), "the rows after the cut", lambda: reader.rows_of(two))
    reader.press("ctrl+s")


def arrange(keys, reader):
    """Minimised, restored, maximised, restored; then all of them cascaded."""
    two = keys.next_window(TWO)
    place = two.rect
    keys.window_menu(two, "n")
    wait_for("a window that is minimised", lambda: two.rect[3] < place[3] / 2)
    keys.window_menu(two, "r")
    await_value(place, "the window's place again", lambda: two.rect)
    keys.window_menu(two, "x")
    wait_for("a window that is maximised", lambda: two.rect[2] == reader.frame.rect[2])
    keys.window_menu(two, "r")
    await_value(place, "the window's place again", lambda: two.rect)
    keys.menu("w", "Cascade")
    wait_for("the cascade", lambda: two.rect[0] != reader.window(ONE).rect[0])


def leave(keys, reader, home):
    """The window of a file with changes: Escape keeps it, Alt+N gives the changes up."""
    one = keys.next_window(ONE)
    keys.row(one, 1)
    reader.press("ctrl+z")
    wait_for("the cut", lambda: reader.list_of(one).child(1).name == "002")
    for key, left in (("Escape", [ONE, TWO]), ("alt+n", [TWO])):
        reader.press("ctrl+w")
        box = reader.dialog("File Program - One.pcg (10)")
        expect([n.name for n in box.walk() if n.role == "label" and n.name], [CHANGED], "the question")
        reader.press(key)
        await_value(left, "the windows", lambda: reader.titles)
        reader.await_frame()
    keys.menu("f", "Exit")
    reader.await_end()


def evening(program, driver, stage, pictures):
    home = os.path.join(stage, "home")
    for name, sample in (("One.pcg", "Full-64.pcg"), ("Two.pcg", "Sparse-64.pcg")):
        shutil.copyfile(os.path.join(home, "samples", sample), os.path.join(home, name))
    reader = Reader(program, home, os.path.join(stage, "program.log"))
    heard = Instrument(stage)
    keys = Keys(reader)
    reader.start_in_english()
    with Driver(driver, os.path.join(stage, "paper"), home) as paper:
        paper.open("One.pcg", "Two.pcg")
        open_and_tie(keys, reader, home)
        recall(keys, reader, heard)
        edit(keys, reader, paper)
        arrange(keys, reader)
        leave(keys, reader, home)
        for name in ("One.pcg", "Two.pcg"):
            with open(os.path.join(home, name), "rb") as ours, open(os.path.join(paper.folder, name), "rb") as theirs:
                expect(ours.read() == theirs.read(), True, f"{name} as the driver has it")


live(evening)
