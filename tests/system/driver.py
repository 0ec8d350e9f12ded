"""The program without its screen (velluto-driver), for the evenings: what it has and writes after the same commands."""
import json
import os
import shutil
import subprocess

from waiting import die_with_parent


class Driver:
    """One run in a folder of its own, which it begins with a copy of another."""

    def __init__(self, command, folder, home):
        shutil.copytree(home, folder, dirs_exist_ok=True)
        self.folder = folder
        self.process = subprocess.Popen([command], cwd=folder, text=True, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        preexec_fn=die_with_parent)

    def __enter__(self):
        self.ask("device out Synth")
        self.ask("device in Keys")
        self.start()
        return self

    def __exit__(self, *_):
        self.process.stdin.close()
        self.process.wait(timeout=40)
        self.process.stdout.close()

    def ask(self, command):
        self.process.stdin.write(command + "\n")
        self.process.stdin.flush()
        answer = json.loads(self.process.stdout.readline())
        assert answer["ok"], f"{command}: {answer}"
        return answer

    def start(self):
        kept = os.path.exists(os.path.join(self.folder, "Velluto.ini"))
        assert self.ask("start " + ("none" if kept else "en"))["running"]

    def windows(self):
        return self.ask("windows")["windows"]

    def named(self, title):
        """The name of the window with this title."""
        return next(w["name"] for w in self.windows() if w["caption"] == title)

    def open(self, *paths):
        for path in paths:
            number, command = {"pcg": (1, "mnuPcgApri"), "sty": (2, "mnuStyApri"), "prf": (3, "mnuPrfApri")}[path[-3:]]
            self.ask(f'choose open "{path}" {number}')
            self.menu(command)

    def rows(self, title):
        """As they are spoken: the words, with single blanks between them."""
        rows = self.ask(f"show {self.named(title)} List1")["controls"]["List1"]["rows"]
        return [" ".join(row.replace("\0", " ").split()) for row in rows]

    def menu(self, entry):
        assert self.ask(f"menu {entry}")["chosen"], f"{entry} is off"
