#!/usr/bin/env python3
"""The program without its screen, ended at every single operation of each thing that it writes: after the next start each file is
the old one or the new one, whole, and no name is there that was not before.

    kills.py DRIVER END_AT SAMPLES          on the machine's disk, a small tmpfs, and a disk that fills up (some seconds)
    kills.py DRIVER END_AT SAMPLES --long   with writes cut in half and not begun, ends while a start puts things right, and
                                            other file systems, as far as the machine has them (some minutes)

END_AT is the library of EndAt.cpp. Runs itself in a mount namespace of its own.
"""
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

SKIPPED = 77  # the exit code that ctest knows
ENDED = 9     # that of the library
MB = 1 << 20

START = ["device out Synth", "device in Keys", "start none"]
EDIT = START + ['choose open "{disk}/Stage.pcg" 1', "menu mnuPcgApri", "click frmPcgUN(1) List1 0", "menu mnuTaglia"]
FILL = START + ['choose open "{disk}/Full.pcg" 1', "menu mnuPcgApri", "click frmPcgUN(1) List1 0", "shiftclick frmPcgUN(1) List1 40",
                "menu mnuCopia", 'choose open "{disk}/Stage.pcg" 1', "menu mnuPcgApri", "click frmPcgUN(2) List1 20", "menu mnuIncolla"]
PLAYER = START + ["menu mnuMidiPlayer", "press frmMIDIPlayer CommSel", 'set frmMIDIPlayer DirMidiSel "{disk}"',
                  "click frmMIDIPlayer ListComp 0", "press frmMIDIPlayer CommAddAll"]
NOTES = START + ["menu mnuBloccoNote", 'type frmBloccoNote Text1 "Set list"']

# What is written, what comes before, what writes, and which file it is.
KINDS = {
    "save": (EDIT, ["menu mnuSalva"], "disk/Stage.pcg"),
    "save into little room": (FILL, ["menu mnuSalva"], "disk/Stage.pcg"),
    "save into a full disk": (FILL, ["menu mnuSalva"], "disk/Stage.pcg"),
    "save as, new": (EDIT, ['choose save "{disk}/New.pcg"', "menu mnuSalvaAs"], "disk/New.pcg"),
    "save as, over another": (EDIT, ['choose save "{disk}/Other.pcg"', "menu mnuSalvaAs"], "disk/Other.pcg"),
    "settings": (START, ["menu mnuVisBarraStato", "exit"], "disk/home/Velluto.ini"),
    "first settings": (START[:2], ["start en"], "disk/home/Velluto.ini"),
    "compilation": (PLAYER, ["close frmMIDIPlayer"], "disk/home/c-evening.cmp"),
    "notebook": (NOTES, ["close frmBloccoNote"], "disk/home/Velluto-Notebook.txt"),
}
# Where a file may be cut short: after how many operations at most, from the one that takes the old file's room to the last byte.
SHORT = {"save into a full disk": 8, "save into little room": 8}


class Stage:
    """A folder with a disk in it, on which the program's folder is too."""

    def __init__(self, mount):
        self.top = pathlib.Path(tempfile.mkdtemp())
        self.disk = self.top / "disk"
        self.home = self.disk / "home"
        self.disk.mkdir()
        self.undo = mount(self)
        self.ready = self.top / "ready"

    def close(self):
        self.undo()
        shutil.rmtree(self.top)

    def lay(self, kind, has_room=False):
        """The files as they are before."""
        for child in self.disk.iterdir():
            if child.name != "lost+found":
                shutil.rmtree(child) if child.is_dir() else child.unlink()
        self.home.mkdir()
        fills = kind in SHORT
        for sample, name in ((f"{'Sparse' if fills else 'Full'}-64.pcg", "Stage.pcg"), ("Sparse-64.pcg", "Other.pcg"), ("Full-64.pcg", "Full.pcg")):
            shutil.copy(SAMPLES / sample, self.disk / name)
        (self.disk / "Song.mid").write_bytes(b"MThd")
        (self.disk / "Air.mid").write_bytes(b"MThd")
        (self.home / "c-evening.cmp").write_bytes(b"\x01" + bytes(self.disk) + b"\0Song.mid\0\xff")
        if kind != "first settings":
            shutil.copy(SETTINGS, self.home / "Velluto.ini")
            (self.home / "Velluto-Notebook.txt").write_bytes(b"old".ljust(32000))
        if fills and not has_room:
            with open(self.disk / "filler", "wb", buffering=0) as filler:
                try:
                    while True:
                        filler.write(bytes(4096))
                except OSError:
                    pass
                if kind == "save into little room":
                    filler.truncate(filler.tell() - 6 * 4096)

    def names(self):
        return sorted(str(path.relative_to(self.disk)) for path in self.disk.rglob("*"))

    def run(self, before, then, end_at=None, half=False):
        """True where the program came to its end by itself."""
        environment = dict(os.environ)
        if end_at is not None:
            environment |= {"LD_PRELOAD": END_AT, "VELLUTO_END_AT": str(end_at), "VELLUTO_END_FROM": str(self.ready),
                            "ASAN_OPTIONS": "verify_asan_link_order=0:detect_leaks=0"}
            environment |= {"VELLUTO_END_HALF": "1"} if half else {}
        self.ready.unlink(missing_ok=True)
        if not before:
            self.ready.touch()
        with subprocess.Popen([DRIVER], cwd=self.home, env=environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE) as program:
            def tell(commands):
                text = "".join(command.replace("{disk}", str(self.disk)) + "\n" for command in commands)
                try:
                    program.stdin.write(text.encode())
                    program.stdin.flush()
                except BrokenPipeError:
                    pass

            tell(before)
            for command in before:
                answer = json.loads(program.stdout.readline())
                assert answer["ok"] and answer.get("chosen", True), f"{command}: {answer}"
            self.ready.touch()
            tell(then)
            program.stdout.read() if program.stdin.close() is None else None
            code = program.wait(timeout=60)
        assert code in (0, ENDED), f"the program ended with {code}"
        return code == 0


def read(path):
    return path.read_bytes() if path.is_file() else None


class Kills:
    def __init__(self, stage, long, nested):
        self.stage = stage
        self.long = long
        self.nested = nested
        self.ends = 0
        self.short = 0

    def check(self, kind, allowed, others, where):
        stage = self.stage
        path = stage.top / KINDS[kind][2]
        left = read(path)
        whole = left in (allowed["old"], allowed["new"])
        # In little room the old file goes once its room is wanted; on a full disk there is no room to tell of it at the beginning.
        may_be_gone = kind == "save into a full disk"
        if not whole and kind in SHORT and (left is not None or may_be_gone) and allowed["new"].startswith(left or b""):
            self.short += 1
        else:
            assert whole, f"{kind}, {where}: {'gone' if left is None else f'{len(left)} bytes'}, neither old nor new"
        for name, bytes_before in others.items():
            assert read(stage.disk / name) == bytes_before, f"{kind}, {where}: {name} has changed"
        strange = set(stage.names()) - self.names
        assert not strange, f"{kind}, {where}: {strange} left behind"

    def try_kind(self, kind):
        before, then, target = KINDS[kind]
        stage = self.stage
        path = stage.top / target
        stage.lay(kind)
        self.names = set(stage.names())
        self.ends = self.short = 0
        others = {name: read(stage.disk / name) for name in stage.names() if stage.disk / name != path and (stage.disk / name).is_file()}
        allowed = {"old": read(path)}
        assert stage.run(before, then)
        if kind in SHORT:
            stage.lay(kind, has_room=True)
            assert stage.run(before, then)
        allowed["new"] = read(path)
        self.names |= set(stage.names())
        assert allowed["new"] not in (None, allowed["old"]), f"{kind} writes nothing"
        ways = [True, False] if self.long else [True]
        again = ["start en"] if kind == "first settings" else ["start none"]
        for half in ways:
            at = 1
            while True:
                stage.lay(kind)
                if stage.run(before, then, at, half):
                    break
                self.put_right(kind, again, allowed, others, at, half)
                at += 1
            assert at > 5, f"{kind}: the library counts nothing"
        self.check(kind, allowed, others, "not ended")
        assert self.short <= len(ways) * SHORT.get(kind, 0), f"{kind}: short after {self.short} ends"
        return self.ends

    def put_right(self, kind, again, allowed, others, at, half):
        """Starts again; nested, ends that start at every operation too."""
        stage = self.stage
        where = f"ended at {at}"
        self.ends += 1
        first = START[:2] + again
        nested = 1
        while self.nested and kind in ("save", "compilation", "notebook", "save as, new") and not stage.run([], first, nested, half):
            stage.run([], first)
            self.check(kind, allowed, others, f"{where} and again at {nested}")
            stage.lay(kind)
            stage.run(*KINDS[kind][:2], at, half)
            nested += 1
            self.ends += 1
        if kind == "first settings":
            first = START[:2] + ["start none"] if read(stage.home / "Velluto.ini") == allowed["new"] else first
        stage.run([], first)
        self.check(kind, allowed, others, where)


def nothing(_stage):
    return lambda: None


def tmpfs(size):
    def mount(stage):
        subprocess.run(["mount", "-t", "tmpfs", "-o", f"size={size}", "disk", stage.disk], check=True)
        return lambda: subprocess.run(["umount", "--lazy", stage.disk], check=True)
    return mount


def overlay(stage):
    for name in ("lower", "room"):
        (stage.top / name).mkdir()
    subprocess.run(["mount", "-t", "tmpfs", "room", stage.top / "room"], check=True)
    for name in ("upper", "work"):
        (stage.top / "room" / name).mkdir()
    options = f"lowerdir={stage.top}/lower,upperdir={stage.top}/room/upper,workdir={stage.top}/room/work"
    subprocess.run(["mount", "-t", "overlay", "-o", options, "overlay", stage.disk], check=True)

    def undo():
        subprocess.run(["umount", stage.disk], check=True)
        subprocess.run(["umount", stage.top / "room"], check=True)
    return undo


def loop(maker, *mounter):
    """A file system of its own in a file, made by a command and mounted by another."""
    def mount(stage):
        image = stage.top / "image"
        with open(image, "wb") as file:
            file.truncate(32 * MB)
        subprocess.run([*maker, image], check=True, capture_output=True)
        device = subprocess.run(["losetup", "--find", "--show", image], check=True, capture_output=True, text=True).stdout.strip()
        try:
            subprocess.run([*mounter, device, stage.disk], check=True, capture_output=True)
        except BaseException:
            subprocess.run(["losetup", "--detach", device], check=False)
            raise

        def undo():
            subprocess.run(["umount", stage.disk], check=True)
            subprocess.run(["losetup", "--detach", device], check=False)
        return undo
    return mount


def main():
    long = "--long" in sys.argv
    full = list(SHORT)
    usual = [kind for kind in KINDS if kind not in full]
    places = [("the machine's disk", nothing, usual if long else ["save"]), ("tmpfs", tmpfs(8 * MB), usual), ("a disk that fills up", tmpfs(256 * 1024), full)]
    if long:
        places += [("overlay", overlay, usual), ("ext4", loop(["mkfs.ext4", "-q"], "mount", "-t", "ext4"), usual),
                   ("vfat", loop(["mkfs.vfat"], "mount", "-t", "vfat"), usual),
                   ("exfat", loop(["mkfs.exfat"], "mount.exfat-fuse"), usual)]
    ends = 0
    for name, mount, kinds in places:
        try:
            stage = Stage(mount)
        except (OSError, subprocess.CalledProcessError) as error:
            print(f"{name}: not on this machine ({error})", flush=True)
            continue
        kills = Kills(stage, long, long and name == "tmpfs")
        try:
            for kind in kinds:
                ended = kills.try_kind(kind)
                ends += ended
                print(f"{name:22} {kind:24} ended {ended:5} times, {kills.short} short", flush=True)
        finally:
            stage.close()
    print(f"ended {ends} times in all")


def first_settings():
    """The settings that a first run leaves."""
    with tempfile.TemporaryDirectory() as folder:
        text = "\n".join([*START[:2], "start en", "exit", ""])
        subprocess.run([DRIVER], input=text, text=True, cwd=folder, check=True, stdout=subprocess.DEVNULL)
        return (pathlib.Path(folder) / "Velluto.ini").read_bytes()


if __name__ == "__main__":
    if "VELLUTO_KILLS" not in os.environ:
        os.environ["VELLUTO_KILLS"] = "1"
        own = ["unshare", "--mount", *([] if os.geteuid() == 0 else ["--map-root-user"])]
        if subprocess.run([*own, "true"], check=False).returncode != 0:
            print("this machine allows no mount namespace")
            sys.exit(SKIPPED)
        os.execvp("unshare", [*own, sys.executable, *sys.argv])
    DRIVER, END_AT = (str(pathlib.Path(path).resolve()) for path in sys.argv[1:3])
    SAMPLES = pathlib.Path(sys.argv[3]).resolve()
    with tempfile.NamedTemporaryFile() as SETTINGS_FILE:
        SETTINGS = SETTINGS_FILE.name
        pathlib.Path(SETTINGS).write_bytes(first_settings())
        main()
