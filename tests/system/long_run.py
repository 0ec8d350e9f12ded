#!/usr/bin/env python3
"""A week of the program without its screen: each hour of it opens, edits, saves and closes files, selects sounds, plays the keyboard
and a MIDI file, and lets the hour pass on the driver's own clock. What it holds in memory does not grow.

    long_run.py DRIVER DATA

Takes some minutes, and is run by hand: docs/DEVELOPING.md.
"""
import json
import pathlib
import random
import shutil
import subprocess
import sys
import tempfile

HOURS = 7 * 24
SETTLED = 24  # hours after which everything has been used and its memory taken
GROWTH = 512  # KiB that the memory may grow by after that: the allocator's play

FILES = {"Pcg": "Full-64.pcg", "Sty": "Grouped-16.sty", "Prf": "Full-8.prf"}
FILTERS = {"Pcg": 1, "Sty": 2, "Prf": 3}
WINDOWS = ["mnuBankA", "mnuBankF", "mnuSty(1)", "mnuMsgEx", "mnuMIDISetup", "mnuGuida", "mnuBloccoNote", "mnuInfo"]


class Program:
    def __init__(self, driver, folder):
        self.process = subprocess.Popen([driver], cwd=folder, text=True, stdin=subprocess.PIPE, stdout=subprocess.PIPE)

    def ask(self, command):
        self.process.stdin.write(command + "\n")
        self.process.stdin.flush()
        answer = json.loads(self.process.stdout.readline())
        if not answer["ok"]:
            sys.exit(f"{command}: {answer}")
        return answer

    def memory(self):
        """KiB that are its own and resident."""
        for line in pathlib.Path(f"/proc/{self.process.pid}/status").read_text(encoding="ascii").splitlines():
            if line.startswith("RssAnon:"):
                return int(line.split()[1])
        sys.exit("no memory seen")

    def names(self):
        return [window["name"] for window in self.ask("windows")["windows"]]


def an_hour(program, chance):
    offered = program.ask("menus")["menus"]
    for kind, file in FILES.items():
        if not offered[f"mnu{kind}Apri"]["enabled"]:
            continue  # eight Style files a run, and no more
        program.ask(f"choose open {file} {FILTERS[kind]}")
        program.ask(f"menu mnu{kind}Apri")
    windows = program.names()
    for window in windows:
        program.ask(f"activate {window}")
        for _ in range(20):
            program.ask(f"click {window} List1 {chance.randrange(8)}")
            program.ask(f"menu {chance.choice(['mnuCopia', 'mnuTaglia', 'mnuIncolla'])}")
        if chance.random() < 0.5 and program.ask("menus")["menus"]["mnuSalvaAs"]["enabled"]:
            program.ask("choose save Saved.tmp")
            program.ask("menu mnuSalvaAs")
    for entry in WINDOWS:
        program.ask(f"menu {entry}")
    program.ask("menu mnuTastiera")
    for _ in range(50):
        key = chance.randrange(61)
        program.ask(f"pointer frmTastiera Key({key}) down 100")
        program.ask(f"pointer frmTastiera Key({key}) up 100")
    program.ask("menu mnuMidiPlayer")
    program.ask("clock 3600000")
    for _ in range(2):
        for window in program.names():
            program.ask("answer no")
            program.ask(f"close {window}")
    for answer in ("sent", "boxes", "dialogs"):
        program.ask(answer)


def main():
    driver, data = str(pathlib.Path(sys.argv[1]).resolve()), pathlib.Path(sys.argv[2]).resolve()
    chance = random.Random(80)
    with tempfile.TemporaryDirectory() as folder:
        for file in FILES.values():
            shutil.copy(data / "samples" / file, folder)
        for file in data.glob("Velluto-*"):
            shutil.copy(file, folder)
        program = Program(driver, folder)
        for command in ("device out Synth", "device in Keys", "start en", "menu mnuDevMIDIOut(0)"):
            program.ask(command)
        settled = 0
        for hour in range(HOURS):
            an_hour(program, chance)
            if hour == SETTLED:
                settled = program.memory()
        last = program.memory()
        print(f"{settled} KiB after a day, {last} KiB after a week")
        if program.ask("exit")["running"]:
            sys.exit("the program did not end")
        program.process.stdin.close()
        if program.process.wait(timeout=20) != 0:
            sys.exit("the program did not end well")
        if last - settled > GROWTH:
            sys.exit("the memory has grown")


if __name__ == "__main__":
    main()
