#!/usr/bin/python3
"""Starts a program on the display and tells how long it took to its first painted frame, and its own resident memory.

    first_paint.py TITLE COMMAND...

Prints "milliseconds kibibytes". The frame is the first top-level window whose title begins with TITLE; it counts as
painted once nearly all pixels of its inside have left the black of an empty window. The display tells when there is something to look at:
who asks again and again takes processor time from what is measured.
"""
import os
import select
import subprocess
import sys
import time

from Xlib import X, display, error
from Xlib.ext import damage

PATIENCE = 20.0
CALM = 0.2  # seconds, in which the display and its window manager put away the window before
LOOK_ANYWAY = 0.05  # seconds without a word
ROWS = 5
EVERY = 16  # pixels of a row
PAINTED_SHARE = 0.9
# Not what is shared with a server: each client of JACK maps and locks all of the server's own memory.
OWN_MEMORY = ("RssAnon", "RssFile")


def frames(screen, titles, clients):
    listed = screen.root.get_full_property(clients, X.AnyPropertyType)
    for number in listed.value if listed else []:
        window = screen.display_object.create_resource_object("window", number)
        title = window.get_full_property(titles, X.AnyPropertyType)
        if title is not None:
            yield window, title.value.decode("utf-8", "replace")


def is_painted(window):
    size = window.get_geometry()
    bright = total = 0
    for row in range(1, ROWS + 1):
        image = window.get_image(0, size.height * row // (ROWS + 1), size.width, 1, X.ZPixmap, 0xFFFFFFFF)
        pixels = [image.data[i : i + 3] for i in range(0, len(image.data), 4 * EVERY)]
        bright += sum(1 for pixel in pixels if any(pixel))
        total += len(pixels)
    return bright >= total * PAINTED_SHARE


class Watch:
    """Finds the first window whose title begins with the wanted words, and tells when something has been drawn in it."""

    def __init__(self, wanted):
        self.connection = display.Display()
        self.wanted = wanted
        self.screen = self.connection.screen()
        self.screen.display_object = self.connection
        self.titles = self.connection.intern_atom("_NET_WM_NAME")
        self.clients = self.connection.intern_atom("_NET_CLIENT_LIST")
        self.window = None
        self.drawn = None
        self.connection.damage_query_version()
        self.screen.root.change_attributes(event_mask=X.PropertyChangeMask)
        self.connection.sync()

    def wait(self):
        """Until there may be something new to see."""
        while True:
            if not self.connection.pending_events() and not select.select([self.connection], [], [], LOOK_ANYWAY)[0]:
                return
            while self.connection.pending_events():
                event = self.connection.next_event()
                if self.window is not None or event.type == X.PropertyNotify:
                    return

    def forget(self):
        self.window = None
        self.screen.root.change_attributes(event_mask=X.PropertyChangeMask)

    def sees_frame(self):
        if self.window is None:
            listed = frames(self.screen, self.titles, self.clients)
            self.window = next((window for window, title in listed if title.startswith(self.wanted)), None)
            if self.window is None:
                return False
            self.screen.root.change_attributes(event_mask=X.NoEventMask)
            self.drawn = self.window.damage_create(damage.DamageReportNonEmpty)
        self.connection.damage_subtract(self.drawn)
        return is_painted(self.window)


def main():
    wanted, command = sys.argv[1], sys.argv[2:]
    time.sleep(CALM)
    watch = Watch(wanted)
    started = time.monotonic()
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        while time.monotonic() - started < PATIENCE:
            try:
                if watch.sees_frame():
                    taken = time.monotonic() - started
                    time.sleep(0.5)  # the memory of a program that has settled
                    with open(f"/proc/{process.pid}/status", encoding="ascii", errors="replace") as status:
                        resident = sum(int(line.split()[1]) for line in status if line.startswith(OWN_MEMORY))
                    print(f"{taken * 1000:.1f} {resident}")
                    return 0
            except (error.BadWindow, error.BadDrawable):
                watch.forget()
            except error.BadMatch:
                pass  # not yet shown
            watch.wait()
        print(f"no painted window \"{wanted}\" of {os.path.basename(command[0])}", file=sys.stderr)
        return 1
    finally:
        process.terminate()
        process.wait()


if __name__ == "__main__":
    sys.exit(main())
