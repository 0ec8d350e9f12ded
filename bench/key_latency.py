#!/usr/bin/python3
"""Presses the mouse button on two keys of a piano on the display, in turn, and tells how long the bytes took to arrive.

    key_latency.py X Y PRESSES heard FILE     FILE is what tests/system/jack-instrument writes with --times
    key_latency.py X Y PRESSES datagrams      notes come as datagrams to the group and port of MIDI over a network

Prints the median, the 95th and the greatest of the times from the pressed button, as it is handed to the display, to the
Note On, in milliseconds, and how many notes never came: a MIDI server that is kept from running in time skips a period with
all that is in it. Both ends read the same monotonic clock.
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


def await_status(source, wanted):
    """When the next message of this status came, or None. What came before it is of no interest."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        for when, status in source.messages():
            if status & 0xF0 == wanted:
                return when
    return None


def main():
    x, y, presses = (int(word) for word in sys.argv[1:4])
    source = Heard(sys.argv[5]) if sys.argv[4] == "heard" else Datagrams()
    screen = display.Display()

    def fake(event, detail=0, **at):
        xtest.fake_input(screen, event, detail, **at)
        screen.flush()

    for _ in source.messages():
        pass
    taken = []
    lost = 0
    for number in range(WARM + presses):
        fake(X.MotionNotify, x=x + number % 2 * STRIDE, y=y)
        time.sleep(random.uniform(0.005, 0.025))  # in step with nobody's period
        pressed = time.monotonic()
        fake(X.ButtonPress, 1)
        came = await_status(source, NOTE_ON)
        fake(X.ButtonRelease, 1)
        await_status(source, NOTE_OFF)
        if came is None:
            lost += 1
            if lost > MOST_LOST * presses:
                sys.exit("too many notes never came")
        elif number >= WARM:
            taken.append((came - pressed) * 1000)
    taken.sort()
    print(f"{statistics.median(taken):.2f} {taken[len(taken) * 95 // 100]:.2f} {taken[-1]:.2f} {lost}")


if __name__ == "__main__":
    main()
