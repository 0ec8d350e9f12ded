#!/usr/bin/python3
"""Presses the mouse button on two keys of a piano on the display, in turn, and tells how long the bytes took to arrive.

    key_latency.py X Y PRESSES heard FILE PIPE     FILE is what tests/system/jack-instrument writes with --times, PIPE what
                                                   tests/system/jack-keys reads
    key_latency.py X Y PRESSES datagrams           notes come as datagrams to the group and port of MIDI over a network

Prints the median, the 95th and the greatest of the times from the pressed button, as it is handed to the display, to the
Note On, in milliseconds, and how many notes never came. With a PIPE a second line of the same: after each press a plain JACK
client is given a note, on a channel of its own, and plays it to the same instrument. A MIDI server that is kept from running in time
skips a period with all that is in it: that the plain client loses as well. Both ends read the same monotonic clock.
"""
import random
import select
import socket
import statistics
import struct
import sys
import time

from Xlib import X, display
from Xlib.ext import xtest

GROUP, PORT = "225.0.0.37", 21928
PATIENCE = 1.0
MOST_LOST = 0.1  # of the presses; beyond that there is no telling what was measured
STRIDE = 40  # pixels to the other key: at the same place again it would be a double click, which not every program plays
WARM = 20
NOTE_OFF, NOTE_ON = 0x80, 0x90


class Heard:
    """Messages out of a file that grows, each with the microsecond of its arrival."""

    def __init__(self, path):
        self.file = open(path, encoding="ascii")
        self.rest = ""

    def messages(self):
        time.sleep(0.001)
        self.rest += self.file.read()
        *lines, self.rest = self.rest.split("\n")
        for line in lines:
            words = line.split()
            if len(words) > 1:
                yield int(words[0]) / 1e6, int(words[1], 16)


class Datagrams:
    """Messages that another program sends to the group."""

    def __init__(self):
        self.socket = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        self.socket.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
        self.socket.bind(("", PORT))
        here_only = struct.pack("4s4s", socket.inet_aton(GROUP), socket.inet_aton("127.0.0.1"))
        self.socket.setsockopt(socket.IPPROTO_IP, socket.IP_ADD_MEMBERSHIP, here_only)

    def messages(self):
        if select.select([self.socket], [], [], 0.01)[0]:
            data = self.socket.recv(256)
            yield time.monotonic(), data[0]


PLAIN_CHANNEL = 15  # counted from 0; nobody presses keys for it


def await_status(source, wanted, plain=False):
    """When the next message of this status came, or None. What came before it is of no interest."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        for when, status in source.messages():
            if status & 0xF0 == wanted and (status & 0x0F == PLAIN_CHANNEL) == plain:
                return when
    return None


class Taken:
    """The times of one player's notes."""

    def __init__(self):
        self.times = []
        self.lost = 0

    def add(self, pressed, came, presses, is_warm):
        if came is None:
            self.lost += 1
            if self.lost > MOST_LOST * presses:
                sys.exit("too many notes never came")
        elif is_warm:
            self.times.append((came - pressed) * 1000)

    def tell(self):
        times = sorted(self.times)
        print(f"{statistics.median(times):.2f} {times[len(times) * 95 // 100]:.2f} {times[-1]:.2f} {self.lost}")


def main():
    x, y, presses = (int(word) for word in sys.argv[1:4])
    source = Heard(sys.argv[5]) if sys.argv[4] == "heard" else Datagrams()
    plain = open(sys.argv[6], "w", encoding="ascii") if len(sys.argv) > 6 else None
    screen = display.Display()

    def fake(event, detail=0, **at):
        xtest.fake_input(screen, event, detail, **at)
        screen.flush()

    def play_plainly(status):
        plain.write(f"{status | PLAIN_CHANNEL:02X} 3C 40\n")
        plain.flush()

    for _ in source.messages():
        pass
    ours, theirs = Taken(), Taken()
    for number in range(WARM + presses):
        fake(X.MotionNotify, x=x + number % 2 * STRIDE, y=y)
        time.sleep(random.uniform(0.005, 0.025))  # in step with nobody's period
        xtest.fake_input(screen, X.ButtonPress, 1)
        pressed = time.monotonic()
        screen.flush()
        ours.add(pressed, await_status(source, NOTE_ON), presses, number >= WARM)
        fake(X.ButtonRelease, 1)
        await_status(source, NOTE_OFF)
        if plain:
            time.sleep(random.uniform(0.005, 0.025))
            pressed = time.monotonic()
            play_plainly(NOTE_ON)
            theirs.add(pressed, await_status(source, NOTE_ON, plain=True), presses, number >= WARM)
            play_plainly(NOTE_OFF)
            await_status(source, NOTE_OFF, plain=True)
    ours.tell()
    if plain:
        theirs.tell()


if __name__ == "__main__":
    main()
