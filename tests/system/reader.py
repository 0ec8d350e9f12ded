"""The program's windows as a screen reader has them, by the accessibility bus, and hands for them: real keys and clicks, at the
places that the bus gives. For the evenings (evening_*.py).
"""
import subprocess

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from waiting import PATIENCE, await_value, die_with_parent, expect, fail, tool, wait_for  # noqa: E402

BUS_PATIENCE = 10000  # milliseconds for one answer
RENAMED = {"button": "push button"}  # newer buses' names of roles, in the words of the older ones

# For xdotool, whose own click waits a tenth of a second.
CLICK = ("mousedown", "1", "mouseup", "1")
DOUBLE_CLICK = CLICK * 2
SHIFT_CLICK = ("keydown", "Shift_L", *CLICK, "keyup", "Shift_L")
RIGHT_CLICK = ("mousedown", "3", "mouseup", "3")


def set_bus_patience():
    Atspi.set_timeout(BUS_PATIENCE, BUS_PATIENCE)


class Node:
    """One thing that the bus knows. What has gone meanwhile has no name, no state and no children."""

    def __init__(self, accessible):
        self.accessible = accessible

    def ask(self, question, none):
        try:
            answer = question(self.accessible)
        except GLib.Error:
            return none
        return none if answer is None else answer

    @property
    def name(self):
        return self.ask(Atspi.Accessible.get_name, "")

    @property
    def role(self):
        name = self.ask(Atspi.Accessible.get_role_name, "")
        return RENAMED.get(name, name)

    @property
    def states(self):
        return {state.value_nick for state in self.ask(lambda a: a.get_state_set().get_states(), [])}

    def has(self, *states):
        return self.states.issuperset(states)

    @property
    def rect(self):
        place = self.ask(lambda a: a.get_extents(Atspi.CoordType.SCREEN), None)
        return (place.x, place.y, place.width, place.height) if place else (0, 0, 0, 0)

    @property
    def middle(self):
        left, top, width, height = self.rect
        return left + width // 2, top + height // 2

    @property
    def children(self):
        return [child for i in range(self.ask(Atspi.Accessible.get_child_count, 0)) if (child := self.child(i))]

    def child(self, index):
        found = self.ask(lambda a: a.get_child_at_index(index), None)
        return Node(found) if found else None

    @property
    def value(self):
        return self.ask(lambda a: a.get_current_value(), None)

    @property
    def text(self):
        return self.ask(lambda a: Atspi.Text.get_text(a, 0, -1), "")

    def do(self):
        """What pressing it does, without mouse or key."""
        if not self.ask(lambda a: a.do_action(0), False):
            fail(f"{self} has no action")

    def label(self):
        """The words of what is there to name it."""
        relations = self.ask(Atspi.Accessible.get_relation_set, [])
        labels = [r for r in relations if r.get_relation_type() == Atspi.RelationType.LABELLED_BY]
        return " ".join(Node(r.get_target(i)).name for r in labels for i in range(r.get_n_targets()))

    def walk(self, into=lambda node: True):
        """All that is below it; not below what `into` refuses."""
        for child in self.children:
            yield child
            if into(child):
                yield from child.walk(into)

    def __repr__(self):
        return f"{self.role} {self.name!r}"


def is_no_list(node):
    return node.role not in ("list", "menu item", "menu bar", "popup menu", "tree")


class Reader:
    """A running program."""

    def __init__(self, command, folder, log):
        self.folder = folder
        with open(log, "ab") as out:
            self.process = subprocess.Popen([command], cwd=folder, stdout=out, stderr=out, preexec_fn=die_with_parent)
        self.program = wait_for("the program on the bus", self.find_program)
        self.program.accessible.set_cache_mask(Atspi.Cache.NONE)

    def find_program(self):
        if self.process.poll() is not None:
            fail(f"the program ended with {self.process.returncode}")
        desktop = Node(Atspi.get_desktop(0))
        return next((c for c in desktop.children if c.ask(Atspi.Accessible.get_process_id, 0) == self.process.pid), None)

    @staticmethod
    def tops():
        """All that is known to the bus as a window, with its words: for a test that fails."""
        for program in Node(Atspi.get_desktop(0)).children:
            for top in program.children:
                words = [n.name for n in top.walk(is_no_list) if n.role in ("label", "frame") and n.name]
                yield f"{top} {sorted(top.states)}: {words}"

    # ---- finding

    def find(self, role, name=None, within=None):
        """The first that shows of this role, and this name where one is given."""
        for node in (within or self.program).walk(is_no_list):
            if node.role == role and (name is None or node.name == name) and node.has("showing"):
                return node
        return None

    def get(self, role, name=None, within=None):
        return wait_for(f"the {role} {name!r}", lambda: self.find(role, name, within))

    @property
    def frame(self):
        return next((c for c in self.program.children if c.role == "frame"), None)

    @property
    def windows(self):
        """The child windows, in the order in which they were opened."""
        area = next((n for n in self.frame.walk(lambda n: n.role == "filler") if n.role == "layered pane"), None)
        return [child for child in area.children if child.role == "frame"] if area else []

    @property
    def titles(self):
        return [window.name for window in self.windows]

    def find_window(self, title):
        return next((window for window in self.windows if window.name == title), None)

    def window(self, title):
        return wait_for(f"the window {title!r}", lambda: self.find_window(title))

    def list_of(self, window, name=None):
        return self.get("list", name, window)

    def find_dialog(self, title):
        tops = (c for c in self.program.children if c.role in ("dialog", "alert") and c.name == title)
        return next((c for c in tops if c.has("active")), None)

    def dialog(self, title):
        return wait_for(f"the dialog {title!r}", lambda: self.find_dialog(title))

    def await_frame(self):
        """Until no dialog is above the frame, which has the keyboard."""
        wait_for("the frame alone", lambda: self.frame and self.frame.has("active") and len(self.program.children) == 1)

    @staticmethod
    def nameless(window):
        """What can have the keyboard and says no name. A combo box says its choice; its name is a label's."""
        reached = [n for n in window.walk(is_no_list) if n.has("showing", "focusable")]
        return [n for n in reached if not (n.label() if n.role == "combo box" else n.name)]

    def bar_entry(self, name):
        """An entry of the menu bar itself."""
        return next(n for n in self.menu_bar.children if n.name == name)

    # ---- doing

    def press(self, *keys):
        for key in keys:
            tool("xdotool", "key", "--clearmodifiers", "--delay", "0", key)

    def type(self, text):
        tool("xdotool", "type", "--delay", "2", text)

    def point(self, x, y, *more):
        tool("xdotool", "mousemove", str(x), str(y), *more)

    def click(self, node, *more):
        wait_for(f"a place for {node}", lambda: node.has("showing") and node.rect[2] > 0)
        x, y = node.middle
        self.point(x, y)
        wait_for("no tool tip in the way", lambda: not any(top.role == "tool tip" for top in self.program.children))
        self.point(x, y, *(more or CLICK))

    def row(self, listing, row):
        return wait_for(f"row {row} of {listing}", lambda: listing.child(row))

    def click_row(self, listing, row, *more):
        self.click(self.row(listing, row), *more)
        wait_for(f"row {row} selected", lambda: listing.child(row).has("selected"))

    @property
    def menu_bar(self):
        """Nothing where the program has just ended."""
        frame = self.frame
        return next((n for n in frame.children if n.role == "menu bar"), None) if frame else None

    def drop(self, *path):
        """Drops a menu by mouse and moves into its submenus. Gives the popup."""
        item = self.bar_entry(path[0])
        wait_for(f"the menu {path[0]}", lambda: item.has("enabled"))
        self.click(item)
        popup = self.popup_of(item)
        for name in path[1:]:
            item = self.entry(popup, name)
            self.click(item)
            popup = self.popup_of(item)
        return popup

    def popup_of(self, item):
        def shown():
            return next((n for n in item.children if n.role == "popup menu" and n.has("showing")), None)

        return wait_for(f"the menu of {item}", shown)

    def find_entry(self, popup, name):
        """By its words without the keys that stand behind them."""
        return next((n for n in popup.children if n.role == "menu item" and n.name.split("\t")[0] == name), None)

    def entry(self, popup, name):
        return self.find_entry(popup, name) or fail(f"no entry {name!r} in {[n.name for n in popup.children]}")

    def choose(self, *path):
        """By the mouse: choose("File", "Open sty")."""
        popup = self.drop(*path[:-1])
        item = self.entry(popup, path[-1])
        if not item.has("enabled"):
            fail(f"the entry {path} is off")
        self.click(item)
        wait_for(f"the end of the menu {path}", lambda: not popup.has("showing"))

    def looked_at(self, *path):
        """Drops a menu, and gives the entries' words with what can be said of them: on, off, checked."""
        popup = self.drop(*path)
        shown = {n.name.split("\t")[0]: n.states for n in popup.children if n.role == "menu item" and n.has("showing")}
        for _ in path:
            self.press("Escape")
        wait_for("the end of the menu", lambda: not popup.has("showing"))
        self.press("Escape")
        return shown

    def bring_up(self, title):
        """By the list at the end of the Window menu."""
        window = self.window(title)
        if not window.has("active"):
            popup = self.drop("Window")
            self.click(self.entry(popup, f"{self.titles.index(title) + 1} {title}"))
            wait_for(f"{title} active", lambda: window.has("active"))
        return window

    def move(self, window, x, y):
        """By its title, with the mouse."""
        left, top, width, _ = window.rect
        grip = width // 3
        self.point(left + grip, top + 12, "mousedown", "1")
        self.point(x + grip + 20, y + 12)
        self.point(x + grip, y + 12, "mouseup", "1")
        await_value((x, y), f"the place of {window}", lambda: window.rect[:2])

    def find_files(self, player):
        """The player's list of the MIDI files in the folder."""
        return self.list_of(self.get("panel", "Files MIDI", player), "MIDI files of the folder")

    def rows_of(self, window):
        return [row.name for row in self.list_of(window).children]

    def button(self, name, within=None):
        return self.get("push button", name, within)

    def answer(self, title, text, button):
        """A question of the program: its words, and the button that is pressed with the mouse."""
        box = self.dialog(title)
        words = [n.name for n in box.walk() if n.role == "label" and n.name]
        expect(words, [text], f"the words of {title!r}")
        self.click(self.button(button, box))
        wait_for(f"the end of {title!r}", lambda: not self.find_dialog(title))

    def choose_file(self, title, path, question=None, button=None):
        """In a file dialog: the name by keys. Where one more question follows, it has this title and gets this answer."""
        dialog = self.dialog(title)

        def name_line():
            return next((n for n in dialog.walk(is_no_list) if n.role == "text" and n.has("focused")), None)

        line = wait_for("the line for the name", name_line)
        self.press("ctrl+a")
        self.type(path)
        await_value(path, "the name typed", lambda: line.text)
        self.press("Return")
        if question:
            def box():
                return next((c for c in self.program.children if c.role == "alert" and c.name == question), None)

            self.click(self.button(button, wait_for("the question", box)))
        wait_for(f"the end of {title!r}", lambda: not self.find_dialog(title))

    # ---- the whole

    def start_in_english(self):
        box = self.dialog("Velluto v 1.1")
        english = self.get("radio button", "English", box)
        self.press("Down")
        wait_for("English", lambda: english.has("checked"))
        self.press("Return")
        wait_for("the frame", lambda: self.frame)
        self.await_frame()

    def await_end(self):
        try:
            status = self.process.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            fail("the program does not end")
        expect(status, 0, "the program's end")
