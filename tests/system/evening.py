"""What the evenings (evening_*.py) share beside the reader: the instrument's ears, pictures, and how an evening is run."""
import os
import sys
import traceback

from reader import Reader, set_bus_patience
from waiting import await_value, die_with_parent, tool


class Instrument:
    """What the recorder has heard (JackInstrument.cpp)."""

    def __init__(self, stage):
        self.path = os.path.join(stage, "heard")
        self.known = 0

    def messages(self):
        with open(self.path, encoding="ascii") as heard:
            return heard.read().split("\n")[1:-1]  # the last line is not whole yet, or empty

    def expect(self, what, *wanted):
        """Exactly these have come since the last look."""
        await_value(list(wanted), what, lambda: self.messages()[self.known :])
        self.known += len(wanted)

    def sounding(self):
        """Notes begun and not ended, as (channel, key)."""
        on = set()
        for message in self.messages():
            data = [int(byte, 16) for byte in message.split()]
            kind, channel = data[0] & 0xF0, data[0] & 0x0F
            if kind == 0x90 and data[2] > 0:
                on.add((channel, data[1]))
            elif kind in (0x80, 0x90):
                on.discard((channel, data[1]))
            elif kind == 0xB0 and data[1] == 0x7B:
                on = {note for note in on if note[0] != channel}
        return on


def picture(folder, name):
    tool("import", "-window", "root", os.path.join(folder, f"{name}.png"))


def live(evening):
    """Runs an evening with the program, the driver, the stage and the folder for pictures; tells what went wrong."""
    die_with_parent()
    set_bus_patience()
    program, driver, stage, pictures = sys.argv[1:5]
    try:
        evening(program, driver, stage, pictures)
    except Exception:
        traceback.print_exc()
        picture(pictures, "failed-" + os.path.basename(sys.argv[0])[: -len(".py")])
        print(*Reader.tops(), sep="\n", file=sys.stderr)
        sys.exit(1)
