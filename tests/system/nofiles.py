#!/usr/bin/env python3
"""What is no file, or none that anybody could mean, at each door that takes a path: the program without its screen and the
console's program say so at once, in words of their own, and go on.

    nofiles.py DRIVER TOOL SAMPLES
"""
import hashlib
import json
import os
import pathlib
import select
import shutil
import socket
import subprocess
import sys
import tempfile
import time
import unittest

PATIENCE = 10  # seconds, on a busy machine


def make(kind, path):
    """Puts the thing in the place of what is there."""
    if path.is_dir() and not path.is_symlink():
        shutil.rmtree(path)
    path.unlink(missing_ok=True)
    if kind == "pipe":
        os.mkfifo(path)
    elif kind == "device":
        path.symlink_to("/dev/zero")
    elif kind == "folder":
        path.mkdir()
    elif kind == "loop":
        path.symlink_to(path.name)
    elif kind == "dangling":
        path.symlink_to("nowhere/at/all")
    elif kind == "socket":
        with socket.socket(socket.AF_UNIX) as server:
            server.bind(str(path))
    elif kind == "long":
        with open(path, "wb") as file:
            file.truncate(4 << 30)


def digest(path):
    return hashlib.sha256(path.read_bytes()).hexdigest()


KINDS = ("pipe", "device", "folder", "loop", "dangling", "socket", "long")


class Program:
    def __init__(self, folder):
        self.process = subprocess.Popen([DRIVER], cwd=folder, stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.answers = b""
        for command in ("device out Synth", "device in Keys", "start en"):
            self.ask(command)
        self.boxes()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()
        self.process.stdin.close()
        self.process.stdout.close()

    def ask(self, command):
        self.process.stdin.write(command.encode("utf-8", "surrogateescape") + b"\n")
        self.process.stdin.flush()
        end = time.monotonic() + PATIENCE
        while b"\n" not in self.answers:
            ready, _, _ = select.select([self.process.stdout], [], [], max(0, end - time.monotonic()))
            assert ready, f"{command}: no answer"
            piece = os.read(self.process.stdout.fileno(), 65536)
            assert piece, f"{command}: the program has gone"
            self.answers += piece
        line, self.answers = self.answers.split(b"\n", 1)
        answer = json.loads(line)
        assert answer["ok"], f"{command}: {answer}"
        return answer

    def boxes(self):
        return [box["text"] for box in self.ask("boxes")["boxes"]]

    def told(self, *commands):
        for command in commands:
            self.ask(command)
        return self.boxes()


class NoFiles(unittest.TestCase):
    def setUp(self):
        self.home = pathlib.Path(tempfile.mkdtemp(dir="/tmp"))
        self.addCleanup(shutil.rmtree, self.home)

    def sample(self, name):
        return pathlib.Path(shutil.copy(SAMPLES / "Full-64.pcg", self.home / name))

    def each(self):
        for kind in KINDS:
            with self.subTest(kind), Program(self.home) as program:
                yield kind, program

    def expected(self, kind, link="Path not found", long="Data format error"):
        return [{"loop": "Disk reading error", "dangling": link, "long": long}.get(kind, "Read only file")]

    def test_open_and_the_recent_files(self):
        for kind, program in self.each():
            make(kind, self.home / "x.pcg")
            self.assertEqual(program.told('choose open x.pcg 1', "menu mnuPcgApri"), self.expected(kind))
            recent = self.sample("recent.pcg")
            self.assertEqual(program.told('choose open recent.pcg 1', "menu mnuPcgApri", "close frmPcgUN(1)"), [])
            make(kind, recent)
            self.assertEqual(program.told("menu mnuRecentFile(1)"), self.expected(kind))
            self.assertTrue(os.path.lexists(self.home / "x.pcg") and os.path.lexists(recent))
            make("none", recent)

    def test_a_user_bank(self):
        for kind, program in self.each():
            tied = self.sample("tied.pcg")
            self.assertEqual(program.told('choose open tied.pcg 1', "menu mnuPcgApri", "press frmPcgUN(1) CommUser(9)",
                                          "close frmPcgUN(1)"), [])
            make(kind, tied)
            self.assertEqual(program.told("menu mnuPcgUser(9)"), self.expected(kind))
            make("none", tied)

    def test_save_and_save_as(self):
        for kind, program in self.each():
            path = self.sample("z.pcg")
            program.told('choose open z.pcg 1', "menu mnuPcgApri", "click frmPcgUN(1) List1 0", "menu mnuTaglia")
            make(kind, self.home / "x.pcg")
            make(kind, path)
            said = [] if kind == "long" else ["Disk writing error"]
            self.assertEqual(program.told("menu mnuSalva"), [] if kind == "long" else self.expected(kind))
            self.assertEqual(program.told('choose save x.pcg', "menu mnuSalvaAs"), said)
            self.assertTrue(os.path.lexists(path))
            for made in (path, self.home / "x.pcg"):
                make("none", made)

    def test_guide_and_notebook(self):
        for kind, program in self.each():
            make(kind, self.home / "Velluto-UserGuide.txt")
            make(kind, self.home / "Velluto-Notebook.txt")
            self.assertEqual(program.told("menu mnuGuida"), self.expected(kind, "File not found", "Disk reading error"))
            self.assertEqual(program.told("menu mnuBloccoNote"), [] if kind == "long" else self.expected(kind))

    def test_settings_and_tables(self):
        for kind in KINDS:
            for name in ("Velluto.ini", "Velluto-pcg.txt", "Velluto-sty.txt"):
                make(kind, self.home / name)
            with self.subTest(kind), Program(self.home) as program:
                self.assertTrue(program.ask("windows")["ok"])
                program.ask("exit")
                self.assertEqual(len(program.boxes()), 0 if kind == "long" else 1)

    def test_compilations_and_their_entries(self):
        for kind, program in self.each():
            (self.home / "Song.mid").write_bytes(b"MThd")
            (self.home / "c-lists.cmp").write_bytes(b"\x01" + bytes(self.home) + b"\0x.mid\0Song.mid\0\xff")
            make(kind, self.home / "c-a.cmp")
            make(kind, self.home / "x.mid")
            program.told("menu mnuMidiPlayer")
            rows = program.ask("show frmMIDIPlayer ListComp")["controls"]["ListComp"]["rows"]
            self.assertEqual(rows, ["a", "lists"] if kind == "long" else ["lists"])
            if kind == "long":
                self.assertEqual(program.told("click frmMIDIPlayer ListComp 0"), ["Data format error"])
            self.assertEqual(program.told(f"click frmMIDIPlayer ListComp {len(rows) - 1}"), [])
            listed = program.ask("show frmMIDIPlayer ListMidiCorr")["controls"]["ListMidiCorr"]["rows"]
            self.assertEqual(len(listed), 2 if kind == "long" else 0, "the list ends before what is no file")
            if kind == "long":
                program.told("click frmMIDIPlayer ListMidiCorr 0")
            make("none", self.home / "c-a.cmp")

    def test_names_of_any_bytes_open_and_are_saved(self):
        with Program(self.home) as program:
            path = self.sample(os.fsdecode(b"caf\xe9.pcg"))
            before = digest(path)
            self.assertEqual(program.told('choose open caf\udce9.pcg 1', "menu mnuPcgApri"), [])
            self.assertEqual(len(program.ask("windows")["windows"]), 1)
            self.assertEqual(program.told("click frmPcgUN(1) List1 0", "menu mnuTaglia", "menu mnuSalva"), [])
            self.assertNotEqual(digest(path), before)
            self.assertEqual(digest(path), program.ask("tag frmPcgUN(1)")["sha256"])
            self.assertEqual([each.name for each in self.home.iterdir() if each.suffix == ".pcg"], [path.name])

    def tool(self, *arguments):
        ended = subprocess.run([TOOL, "--language", "en", *arguments], cwd=self.home, capture_output=True, timeout=PATIENCE,
                               stdin=subprocess.DEVNULL, check=False)
        return ended.returncode, ended.stderr

    def test_the_consoles_program(self):
        said = {"loop": b"its links lead in a circle", "dangling": b"does not exist", "long": b"is that long"}
        for kind in (kind for kind in KINDS if kind != "folder"):
            with self.subTest(kind):
                for name in ("x.pcg", "x.ins", "x.csv", os.fsdecode(b"\xff.pcg")):
                    make(kind, self.home / name)
                expected = said.get(kind, b"is no ordinary file")
                for command in ("list", "check"):
                    for named in ("x.pcg", ".", os.fsdecode(b"\xff.pcg")):
                        code, words = self.tool(command, named)
                        self.assertIn(code, (1, 3))
                        self.assertTrue(expected in words or (command, kind) == ("check", "long"), words)
                for named in ("x.ins", "x.csv"):
                    code, words = self.tool("tables", "import", named)
                    self.assertEqual(code, 3)
                    self.assertIn(b"is too large" if kind == "long" else expected, words)

    def test_the_consoles_tables(self):
        (self.home / "good.csv").write_text("msb,lsb,program,name,kind\n121,0,0,Piano,program\n")
        own = self.home / "own"
        for kind in KINDS:
            with self.subTest(kind):
                own.mkdir()
                for name in ("Velluto-pcg.txt", "Velluto-sty.txt"):
                    make(kind, own / name)
                for command in (["import", "good.csv"], ["export", "out"]):
                    code, words = self.tool("tables", *command, "--folder", "own")
                    self.assertNotEqual((code, words), (0, b""), command)
                    self.assertEqual([path.name for path in own.iterdir() if ".bak" in path.name], [])
                shutil.rmtree(own)


if __name__ == "__main__":
    DRIVER, TOOL = (str(pathlib.Path(path).resolve()) for path in sys.argv[1:3])
    SAMPLES = pathlib.Path(sys.argv[3]).resolve()
    unittest.main(argv=sys.argv[:1])
