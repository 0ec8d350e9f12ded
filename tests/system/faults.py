#!/usr/bin/env python3
"""What happens to a user's files when the machine fails: the program without its screen on real disks that are full,
protected or gone, and killed while it saves.

    faults.py DRIVER SAMPLES

Runs itself in a mount namespace of its own, so that it can have a small disk, and the program without the rights that
would let a superuser write what is protected.
"""
import hashlib
import json
import os
import pathlib
import random
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

DISK = 128 * 1024  # bytes of the small disk
SETTINGS = 40000
SKIPPED = 77  # the exit code that ctest knows


class Program:
    """One run, in the given folder: commands in, answers out."""

    def __init__(self, folder):
        self.process = subprocess.Popen(
            ["setpriv", "--bounding-set=-all", "--inh-caps=-all", DRIVER], cwd=folder, text=True,
            stdin=subprocess.PIPE, stdout=subprocess.PIPE)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.stdin.close()
        self.process.wait(timeout=20)
        self.process.stdout.close()

    def tell(self, command):
        self.process.stdin.write(command + "\n")
        self.process.stdin.flush()

    def ask(self, command):
        self.tell(command)
        answer = json.loads(self.process.stdout.readline())
        assert answer["ok"], f"{command}: {answer}"
        return answer

    def start(self, language="en"):
        self.ask("device out Synth")
        self.ask("device in Keys")
        assert self.ask(f"start {language}")["running"]
        self.boxes()

    def open(self, path):
        self.ask(f'choose open "{path}" 1')
        self.ask("menu mnuPcgApri")

    def boxes(self):
        """Title and text of the message boxes since the last call."""
        return [(box["title"], box["text"]) for box in self.ask("boxes")["boxes"]]

    def changed(self, window):
        """Whether closing the window would ask to save."""
        return self.ask(f"tag {window}")["prefix"][10:12] == "01"


def digest(path):
    return hashlib.sha256(pathlib.Path(path).read_bytes()).hexdigest()


def fill(folder):
    """Leaves no free byte on the folder's disk."""
    with open(folder / "filler", "wb", buffering=0) as filler:
        try:
            while True:
                filler.write(bytes(4096))
        except OSError:
            pass


class Faults(unittest.TestCase):
    def setUp(self):
        self.stage = pathlib.Path(tempfile.mkdtemp())
        self.home = self.stage / "home"
        self.disk = self.stage / "disk"
        self.home.mkdir()
        self.disk.mkdir()
        subprocess.run(["mount", "-t", "tmpfs", "-o", f"size={DISK}", "disk", self.disk], check=True)
        self.addCleanup(shutil.rmtree, self.stage)
        self.addCleanup(subprocess.run, ["umount", "--lazy", self.disk], check=True)

    def sample(self, name, folder, new_name):
        return pathlib.Path(shutil.copy(SAMPLES / name, folder / new_name))

    def edited(self, program, path):
        """The file in the first window, with a Program cut."""
        program.start()
        program.open(path)
        program.ask("click frmPcgUN(1) List1 0")
        self.assertTrue(program.ask("menu mnuTaglia")["chosen"])
        self.assertTrue(program.changed("frmPcgUN(1)"))
        return "frmPcgUN(1)"

    def test_a_full_disk_while_saving_is_told_and_the_window_keeps_it_all(self):
        path = self.sample("Sparse-64.pcg", self.disk, "Stage.pcg")
        full = self.sample("Full-64.pcg", self.home, "Full.pcg")
        with Program(self.home) as program:
            program.start()
            program.open(full)
            program.ask("click frmPcgUN(1) List1 0")
            program.ask("shiftclick frmPcgUN(1) List1 63")
            self.assertTrue(program.ask("menu mnuCopia")["chosen"])
            program.open(path)
            free = program.ask("show frmPcgUN(2) List1")["controls"]["List1"]["rows"]
            row = next(i for i, text in enumerate(free) if not text[4:].strip())
            program.ask(f"click frmPcgUN(2) List1 {row}")
            self.assertTrue(program.ask("menu mnuIncolla")["chosen"])
            fill(self.disk)
            before = program.ask("tag frmPcgUN(2)")["sha256"]
            program.ask("menu mnuSalva")
            self.assertEqual(program.boxes(), [("Saving Stage.pcg", "Disk reading error")])
            self.assertTrue(program.changed("frmPcgUN(2)"))
            self.assertEqual(program.ask("tag frmPcgUN(2)")["sha256"], before)
            (self.disk / "filler").unlink()
            program.ask("menu mnuSalva")
            self.assertEqual(program.boxes(), [])
            self.assertFalse(program.changed("frmPcgUN(2)"))
        self.assertEqual(digest(path), before)

    def test_a_file_made_read_only_stays_and_is_told(self):
        path = self.sample("Full-64.pcg", self.home, "Stage.pcg")
        before = digest(path)
        with Program(self.home) as program:
            window = self.edited(program, path)
            path.chmod(0o444)
            program.ask("menu mnuSalva")
            self.assertEqual(program.boxes(), [("Saving Stage.pcg", "Read only file")])
            program.ask(f'choose save "{path}"')
            program.ask("menu mnuSalvaAs")
            self.assertEqual(program.boxes(), [("Velluto v 1.1", "Disk writing error")])
            self.assertTrue(program.changed(window))
            self.assertEqual(digest(path), before)
            elsewhere = self.home / "Other.pcg"
            program.ask(f'choose save "{elsewhere}"')
            program.ask("menu mnuSalvaAs")
            self.assertFalse(program.changed(window))
            self.assertEqual(digest(elsewhere), program.ask(f"tag {window}")["sha256"])

    def test_a_file_removed_meanwhile_is_written_anew(self):
        path = self.sample("Full-64.pcg", self.home, "Stage.pcg")
        with Program(self.home) as program:
            window = self.edited(program, path)
            path.unlink()
            program.ask("menu mnuSalva")
            self.assertEqual(program.boxes(), [])
            self.assertFalse(program.changed(window))
            self.assertEqual(digest(path), program.ask(f"tag {window}")["sha256"])

    def test_a_folder_removed_meanwhile_is_told_and_another_takes_the_file(self):
        folder = self.home / "Evening"
        folder.mkdir()
        path = self.sample("Full-64.pcg", folder, "Stage.pcg")
        with Program(self.home) as program:
            window = self.edited(program, path)
            shutil.rmtree(folder)
            program.ask("menu mnuSalva")
            self.assertEqual(program.boxes(), [("Saving Stage.pcg", "Path not found")])
            self.assertTrue(program.changed(window))
            elsewhere = self.home / "Stage.pcg"
            program.ask(f'choose save "{elsewhere}"')
            program.ask("menu mnuSalvaAs")
            self.assertEqual(digest(elsewhere), program.ask(f"tag {window}")["sha256"])

    def test_a_program_folder_on_a_full_disk_is_told_at_the_end(self):
        path = self.sample("Sparse-64.pcg", self.disk, "Stage.pcg")
        before = digest(path)
        fill(self.disk)
        with Program(self.disk) as program:
            program.start()
            self.assertFalse(program.ask("exit")["running"])
            # Where the settings cannot be made, the language chosen is not kept either.
            self.assertEqual(program.boxes(), [("Chiusura dispositivo MIDI di uscita", "Errore di lettura da disco")])
        self.assertEqual((self.disk / "Velluto.ini").read_bytes(), b"")
        self.assertEqual(digest(path), before)
        (self.disk / "filler").unlink()

    def test_settings_that_may_not_be_written_are_told_and_stay(self):
        with Program(self.home) as program:
            program.start()
            program.ask("exit")
        settings = self.home / "Velluto.ini"
        before = digest(settings)
        settings.chmod(0o444)
        with Program(self.home) as program:
            program.start("none")
            self.assertFalse(program.ask("exit")["running"])
            self.assertEqual(program.boxes()[-1][1], "File di sola lettura")  # nor read: first-run values
        self.assertEqual(digest(settings), before)

    def test_a_notebook_on_a_full_disk_keeps_its_window(self):
        with Program(self.disk) as program:
            program.start()
            program.ask("menu mnuBloccoNote")
            program.ask('type frmBloccoNote Text1 "Set list"')
            fill(self.disk)
            program.ask("close frmBloccoNote")
            self.assertIn("frmBloccoNote", [window["name"] for window in program.ask("windows")["windows"]])
            self.assertEqual(len(program.boxes()), 1)
            (self.disk / "filler").unlink()
            program.ask("close frmBloccoNote")
            self.assertEqual(program.boxes(), [])
            program.process.stdin.write("exit\n")
        self.assertTrue((self.disk / "Velluto-Notebook.txt").read_bytes().startswith(b"Set list"))

    def test_a_second_copy_leaves_the_settings_whole(self):
        with Program(self.home) as first, Program(self.home) as second:
            first.start()
            second.start("none")
            first.ask("menu mnuVisBarraStato")
            second.ask("exit")
            first.ask("exit")
        settings = (self.home / "Velluto.ini").read_bytes()
        self.assertEqual(len(settings), SETTINGS)
        self.assertEqual(settings[26], 0)  # the one that ended last has had the last word

    def test_a_file_saved_by_two_copies_is_that_of_the_last_save(self):
        path = self.sample("Full-64.pcg", self.home, "Stage.pcg")
        with Program(self.home) as first, Program(self.home) as second:
            for program, row in ((first, 0), (second, 1)):
                program.start("en" if program is first else "none")
                program.open(path)
                program.ask(f"click frmPcgUN(1) List1 {row}")
                self.assertTrue(program.ask("menu mnuTaglia")["chosen"])
            saved = []
            for program in (first, second, first):
                program.ask("menu mnuSalva")
                self.assertEqual(program.boxes(), [])
                saved.append(program.ask("tag frmPcgUN(1)")["sha256"])
                self.assertEqual(digest(path), saved[-1])
        self.assertNotEqual(saved[0], saved[1])

    def test_killed_at_any_moment_every_file_is_whole_at_the_next_start(self):
        kept = self.sample("Full-64.pcg", self.home, "Kept.pcg")
        with Program(self.home) as program:
            self.edited(program, kept)
            program.ask("menu mnuSalva")
            program.ask("exit")
        last_save = digest(kept)
        settings = digest(self.home / "Velluto.ini")
        saved = SAMPLES.joinpath("Full-128.pcg").read_bytes()
        times = random.Random(80)
        for _ in range(25):
            under_way = self.sample("Full-128.pcg", self.home, "Saved.pcg")
            program = Program(self.home)
            program.start("none")
            program.open(kept)
            program.open(under_way)
            for _ in range(200):
                program.tell("menu mnuSalva")
            time.sleep(times.uniform(0, 0.01))  # any moment will do: nothing is expected of it
            program.process.send_signal(signal.SIGKILL)
            program.process.wait(timeout=20)
            for pipe in (program.process.stdin, program.process.stdout):
                try:
                    pipe.close()
                except BrokenPipeError:
                    pass
            self.assertEqual(digest(kept), last_save)
            self.assertEqual(digest(self.home / "Velluto.ini"), settings)
            with Program(self.home) as again:
                again.start("none")
            self.assertEqual(under_way.read_bytes(), saved)
            self.assertEqual([path.name for path in self.home.iterdir() if path.name.startswith(".")], [])


if __name__ == "__main__":
    if "VELLUTO_FAULTS" not in os.environ:
        os.environ["VELLUTO_FAULTS"] = "1"
        rights = [] if os.geteuid() == 0 else ["--map-root-user"]
        own = ["unshare", "--mount", *rights]
        if subprocess.run([*own, "true"], check=False).returncode != 0:
            print("this machine allows no mount namespace")
            sys.exit(SKIPPED)
        os.execvp("unshare", [*own, sys.executable, *sys.argv])
    DRIVER, SAMPLES = str(pathlib.Path(sys.argv[1]).resolve()), pathlib.Path(sys.argv[2]).resolve()
    unittest.main(argv=sys.argv[:1])
