#!/usr/bin/python3
"""Starts a program on the display and tells how long it took to its first painted frame, and its own resident memory.

    first_paint.py TITLE COMMAND...

Prints "milliseconds kibibytes". The frame is the first top-level window whose title begins with TITLE; it counts as
painted once nearly all pixels of its inside have left the black of an empty window. Looks about once a millisecond.
"""
import os
import subprocess
import sys
import time

from Xlib import X, display, error

PATIENCE = 20.0
ROWS = 5
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
        pixels = [image.data[i : i + 3] for i in range(0, len(image.data), 4)]
        bright += sum(1 for pixel in pixels if any(pixel))
        total += len(pixels)
    return bright >= total * PAINTED_SHARE


def main():
    wanted, command = sys.argv[1], sys.argv[2:]
    connection = display.Display()
    screen = connection.screen()
    screen.display_object = connection
    titles = connection.intern_atom("_NET_WM_NAME")
    clients = connection.intern_atom("_NET_CLIENT_LIST")
    started = time.monotonic()
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        while time.monotonic() - started < PATIENCE:
            try:
                if any(title.startswith(wanted) and is_painted(window) for window, title in frames(screen, titles, clients)):
                    taken = time.monotonic() - started
                    time.sleep(0.5)  # the memory of a program that has settled
                    with open(f"/proc/{process.pid}/status", encoding="ascii", errors="replace") as status:
                        resident = sum(int(line.split()[1]) for line in status if line.startswith(OWN_MEMORY))
                    print(f"{taken * 1000:.1f} {resident}")
                    return 0
            except (error.BadWindow, error.BadDrawable, error.BadMatch):
                pass  # gone or not yet shown
            time.sleep(0.001)
        print(f"no painted window \"{wanted}\" of {os.path.basename(command[0])}", file=sys.stderr)
        return 1
    finally:
        process.terminate()
        process.wait()


if __name__ == "__main__":
    sys.exit(main())
