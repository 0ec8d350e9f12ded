"""An evening of editing, saving and closing. Each step is done twice: by hands in the real program, and by the driver in a
folder of its own. At the end both folders hold the same files, byte for byte.
"""
import os
import shutil
import subprocess

from driver import Driver
from evening import live, picture
from reader import RIGHT_CLICK, SHIFT_CLICK, Reader
from waiting import await_value, expect, fail, wait_for

CHANGED = "The file has changed\nSave changes ?"
OPEN = {"pcg": "mnuPcgApri", "sty": "mnuStyApri", "prf": "mnuPrfApri"}
COPIES = {
    "One.pcg": "Full-64.pcg", "Two.pcg": "Sparse-64.pcg", "Shuffles.sty": "Interleaved-16.sty", "Few.sty": "Sparse-5.sty",
    "Eight.prf": "Full-8.prf", "Some.prf": "Sparse-8.prf", "Over.pcg": "Full-128.pcg",
}


def user(name, number=1):
    return f"File User: {name}" + {"pcg": f" ({number})", "sty": "   (STY)", "prf": ""}[name[-3:]]


class Twins:
    """The program under the reader's hands and the driver under the same commands."""

    def __init__(self, reader, paper, home):
        self.reader, self.paper, self.home = reader, paper, home

    def same_rows(self, title):
        window = self.reader.window(title)
        await_value(self.paper.rows(title), f"the rows of {title}", lambda: self.reader.rows_of(window))

    def open(self, name, title):
        self.reader.press("ctrl+a")
        self.reader.choose_file("Velluto v 1.1- Open File", name)
        self.reader.window(title)
        self.reader.await_frame()
        self.paper.open(name)

    def activate(self, title):
        window = self.reader.bring_up(title)
        self.paper.ask(f"activate {self.paper.named(title)}")
        return window

    def select(self, title, first, last=None):
        """The run of rows from first to last, by click and Shift+click."""
        listing = self.reader.list_of(self.activate(title))
        self.reader.click_row(listing, first)
        self.paper.ask(f"click {self.paper.named(title)} List1 {first}")
        if last is not None:
            self.reader.click_row(listing, last, *SHIFT_CLICK)
            self.paper.ask(f"shiftclick {self.paper.named(title)} List1 {last}")

    def copy(self):
        self.reader.choose("Edit", "Copy")
        self.paper.menu("mnuCopia")

    def paste_by_keys(self, title):
        self.reader.press("ctrl+v")
        self.paper.menu("mnuIncolla")
        self.same_rows(title)

    def paste(self, title):
        self.reader.choose("Edit", "Paste")
        self.paper.menu("mnuIncolla")
        self.same_rows(title)

    def delete(self, title):
        """The Delete key, which cuts."""
        self.reader.press("Delete")
        self.paper.ask(f"key {self.paper.named(title)} List1 Delete")
        self.same_rows(title)

    def cut_by_right_click(self, title, row):
        """In the menu that comes up under the pointer."""
        listing = self.reader.list_of(self.reader.window(title))
        self.reader.click(listing.child(row), *RIGHT_CLICK)
        popup = self.reader.popup_of(self.reader.bar_entry("Edit"))
        self.reader.click(self.reader.entry(popup, "Cut"))
        self.paper.menu("mnuTaglia")
        self.same_rows(title)

    def save(self, name):
        before = self.bytes_of(name)
        self.reader.press("ctrl+s")
        self.paper.menu("mnuSalva")
        self.await_file(name)
        if before == self.bytes_of(name):
            fail(f"{name} was not changed")

    def save_as(self, name, question=None):
        self.reader.choose("File", "Salva come")
        self.reader.choose_file("Save file as", os.path.join(self.home, name), *(question or ()))
        self.paper.ask(f'choose save "{os.path.join(self.paper.folder, name)}"')
        self.paper.menu("mnuSalvaAs")
        self.await_file(name)
        self.reader.await_frame()

    def bytes_of(self, name):
        with open(os.path.join(self.home, name), "rb") as file:
            return file.read()

    def await_file(self, name):
        with open(os.path.join(self.paper.folder, name), "rb") as file:
            wanted = file.read()
        path = os.path.join(self.home, name)
        wait_for(f"the bytes of {name}", lambda: os.path.exists(path) and self.bytes_of(name) == wanted)

    def close(self, title, button):
        """By Ctrl+W, and the answer to its question."""
        self.activate(title)
        self.paper.ask(f"answer {button.lower()}")
        self.paper.ask(f"close {self.paper.named(title)}")
        self.reader.press("ctrl+w")
        self.answer_as_asked([button])
        await_value([w["caption"] for w in self.paper.windows()], "the windows", lambda: self.reader.titles)

    def answer_as_asked(self, buttons):
        """The questions are those that the driver was asked."""
        asked = self.paper.ask("boxes")["boxes"]
        expect([box["answer"] for box in asked], [button.lower() for button in buttons], "the questions")
        for box, button in zip(asked, buttons):
            expect(box["text"].replace("\r", ""), CHANGED, "the words of the question")
            self.reader.answer(box["title"].replace(self.paper.folder, self.home), CHANGED, button)


def edit_programs(twins):
    """Three Programs are copied from one file to another, two are cut by key, one by the menu of the right button."""
    one, two = user("One.pcg", 1), user("Two.pcg", 2)
    twins.select(one, 16, 18)
    twins.copy()
    twins.select(two, 5, 7)
    twins.paste_by_keys(two)
    twins.save("Two.pcg")
    twins.select(one, 62, 63)
    twins.delete(one)
    twins.select(one, 5)
    twins.cut_by_right_click(one, 5)
    twins.select(two, 8)
    twins.paste(two)
    twins.activate(one)
    twins.save_as("Elsewhere.pcg")
    expect(twins.bytes_of("One.pcg"), twins.bytes_of("samples/Full-64.pcg"), "the file that was saved elsewhere")
    twins.activate(two)
    twins.save_as("Over.pcg", ("Save file as", "Yes"))


def edit_styles(twins):
    """A Style and its STS go to another file, and one out of it."""
    shuffles, few = user("Shuffles.sty"), user("Few.sty")
    twins.select(shuffles, 2, 3)
    twins.copy()
    twins.select(few, 1, 2)
    twins.paste(few)
    twins.select(few, 15)
    twins.delete(few)
    twins.save("Few.sty")


def edit_performances(twins):
    """Three Performances go into a new file, which gets a name as it is saved."""
    eight, new = user("Eight.prf"), "Nuovo File: Senza titolo.prf"
    twins.reader.choose("File", "New prf")
    twins.paper.menu("mnuPrfNuovo")
    twins.select(eight, 0, 2)
    twins.copy()
    twins.select(new, 3, 5)
    twins.paste_by_keys(new)
    twins.save_as("Fresh.prf")


def close_some(twins):
    """Cancel keeps a window, No gives its changes up, Yes saves them."""
    eight, some = user("Eight.prf"), user("Some.prf")
    twins.select(eight, 6, 7)
    twins.delete(eight)
    before = twins.bytes_of("Eight.prf")
    twins.close(eight, "Cancel")
    twins.close(eight, "No")
    expect(twins.bytes_of("Eight.prf"), before, "the file whose changes were given up")
    twins.select(some, 2)
    twins.delete(some)
    twins.close(some, "Yes")
    twins.await_file("Some.prf")


def print_file(twins):
    """Into a PDF, since there is no printer: the words of the listing in their places."""
    title = user("Over.pcg", 2)
    twins.activate(title)
    twins.reader.press("ctrl+p")
    twins.reader.choose_file("Velluto v 1.1 - Print", os.path.join(twins.home, "Over.pdf"))
    twins.paper.menu("mnuStampa")
    lines = [line["text"] for line in twins.paper.ask("printed")["pages"][0]]
    path = os.path.join(twins.home, "Over.pdf")
    wait_for("the PDF", lambda: os.path.exists(path))
    twins.reader.await_frame()
    text = subprocess.run(["pdftotext", "-layout", path, "-"], check=True, capture_output=True, text=True).stdout
    # But for the first line, which has the day in it.
    printed = [" ".join(line.split()) for line in text.splitlines() if line.strip()][1:]
    expect(printed, [" ".join(line.split()) for line in lines if line.strip()][1:], "the words in the PDF")


def leave(twins):
    """The frame is asked to close with two files changed: Cancel keeps all of it, then No and Yes."""
    reader, paper = twins.reader, twins.paper
    shuffles, few = user("Shuffles.sty"), user("Few.sty")
    twins.select(shuffles, 0)
    twins.delete(shuffles)
    twins.select(few, 0)
    twins.delete(few)
    windows = reader.titles
    kept = {name: twins.bytes_of(name) for name in ("Shuffles.sty", "Few.sty")}
    paper.ask("answer cancel")
    assert paper.ask("exit")["running"]
    reader.press("alt+F4")
    twins.answer_as_asked(["Cancel"])
    reader.await_frame()
    expect(reader.titles, windows, "the windows after Cancel")
    twins.same_rows(shuffles)
    twins.same_rows(few)
    for name, before in kept.items():
        expect(twins.bytes_of(name), before, f"{name} after Cancel")
    picture(twins.pictures, "evening-editing")
    paper.ask("answer no")
    paper.ask("answer yes")
    assert not paper.ask("exit")["running"]
    reader.press("alt+F4")
    twins.answer_as_asked(["No", "Yes"])
    reader.await_end()
    expect(twins.bytes_of("Shuffles.sty"), kept["Shuffles.sty"], "the file whose changes were given up")


def documents(folder):
    found = {}
    for place, _, names in os.walk(folder):
        for name in names:
            if name.endswith((".pcg", ".sty", ".prf", ".txt")) and name != "Velluto-devices.txt":  # that one is of the machine
                path = os.path.join(place, name)
                with open(path, "rb") as file:
                    found[os.path.relpath(path, folder)] = file.read()
    return found


def evening(program, driver, stage, pictures):
    home = os.path.join(stage, "home")
    for name, sample in COPIES.items():
        shutil.copyfile(os.path.join(home, "samples", sample), os.path.join(home, name))
    reader = Reader(program, home, os.path.join(stage, "program.log"))
    reader.start_in_english()
    with Driver(driver, os.path.join(stage, "paper"), home) as paper:
        twins = Twins(reader, paper, home)
        twins.pictures = pictures
        twins.open("One.pcg", user("One.pcg", 1))
        twins.open("Two.pcg", user("Two.pcg", 2))
        for name in ("Shuffles.sty", "Few.sty", "Eight.prf", "Some.prf"):
            twins.open(name, user(name))
        edit_programs(twins)
        edit_styles(twins)
        edit_performances(twins)
        close_some(twins)
        print_file(twins)
        leave(twins)
        by_hand, by_driver = documents(home), documents(paper.folder)
        expect(sorted(by_hand), sorted(by_driver), "the files")
        for name, content in by_hand.items():
            if content != by_driver[name]:
                fail(f"{name} is not what the driver has written")


live(evening)
