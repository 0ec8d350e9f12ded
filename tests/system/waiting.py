"""Waits that have a condition and an end, and what a test says where they end in vain. For the evenings (evening_*.py)."""
import ctypes
import signal
import subprocess
import time

PATIENCE = 40  # seconds that any wait may take
LOOK_EVERY = 0.02
PR_SET_PDEATHSIG = 1


class Failed(Exception):
    """What was expected did not come, in words."""


def fail(words):
    raise Failed(words)


def expect(found, wanted, what):
    if found != wanted:
        fail(f"{what}: {found!r} instead of {wanted!r}")


def wait_for(what, look):
    """Looks until the answer is true, and gives it."""
    end = time.monotonic() + PATIENCE
    while True:
        answer = look()
        if answer:
            return answer
        if time.monotonic() > end:
            fail(f"waited {PATIENCE} s for {what}")
        time.sleep(LOOK_EVERY)


def await_value(wanted, what, look):
    """Looks until it finds what is wanted."""
    found = [None]

    def is_there():
        found[0] = look()
        return found[0] == wanted

    try:
        wait_for(what, is_there)
    except Failed:
        fail(f"{what}: {found[0]!r} instead of {wanted!r}")


def die_with_parent():
    ctypes.CDLL(None).prctl(PR_SET_PDEATHSIG, signal.SIGKILL)


def tool(*words):
    return subprocess.run(words, check=True, capture_output=True, text=True).stdout
