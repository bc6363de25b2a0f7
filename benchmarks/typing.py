#!/usr/bin/env python3
"""What a key costs the built program, and how long the screen takes to follow it, at the top and at
the end of a CSD document; and what the idle program takes. In the form of rows that Measure.h tells.

  benchmarks/typing.py [PROGRAM-FOLDER] [LINES...]"""

import ctypes
import glob
import os
import statistics
import sys
import time

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, "..", "tests", "program"))

from desktop import Desktop  # noqa: E402

PROGRAM_FOLDER = sys.argv[1] if len(sys.argv) > 1 else os.path.join(HERE, "../build/release/bin")
SIZES = [int(size) for size in sys.argv[2:]] or [1_000, 1_000_000]
KEYS = 90  # so that they fit into the line
PAUSE = 0.067  # seconds from key to key, a quick typist; no divisor of the window's ticks
LOOKING_ROUND = 4  # seconds in which the program looks once for each tag
IDLE = 3  # seconds

LEFT, WIDTH, HEIGHT = 190, 1000, 1024  # the part of the screen where the text is


class Image(ctypes.Structure):
    """The beginning of an XImage."""

    _fields_ = [(name, ctypes.c_int) for name in ("width", "height", "offset", "format")]
    _fields_.append(("data", ctypes.c_void_p))


X11, XTEST = (ctypes.CDLL(f"lib{name}.so.6") for name in ("X11", "Xtst"))
X11.XOpenDisplay.restype = ctypes.c_void_p
X11.XStringToKeysym.restype = X11.XDefaultRootWindow.restype = ctypes.c_ulong
X11.XGetImage.restype = ctypes.POINTER(Image)


class Screen:
    """Presses keys and notices when the line of the caret looks different."""

    def __init__(self, name):
        self.display = ctypes.c_void_p(X11.XOpenDisplay(name.encode()))
        self.root = ctypes.c_ulong(X11.XDefaultRootWindow(self.display))
        letter = ctypes.c_ulong(X11.XStringToKeysym(b"a"))
        self.code = X11.XKeysymToKeycode(self.display, letter)
        self.top, self.height = 0, HEIGHT

    def picture(self):
        """The rows of pixels that are looked at."""
        all_planes = ctypes.c_ulong(0xFFFFFFFF)
        image = X11.XGetImage(
            self.display, self.root, LEFT, self.top, WIDTH, self.height, all_planes, 2
        )
        pixels = ctypes.string_at(image.contents.data, 4 * WIDTH * self.height)
        X11.XDestroyImage(image)
        return pixels

    def press(self):
        for down in (1, 0):
            XTEST.XTestFakeKeyEvent(self.display, self.code, down, ctypes.c_ulong(0))
        X11.XFlush(self.display)

    def find_caret(self):
        """Looks at the line in which a key shows, from now on."""
        self.top, self.height = 0, HEIGHT
        before = self.picture()
        self.press()
        time.sleep(0.5)
        after = self.picture()
        starts = range(0, len(before), 4 * WIDTH)
        rows = [(before[at : at + 4 * WIDTH], after[at : at + 4 * WIDTH]) for at in starts]
        changed = [y for y, (old, new) in enumerate(rows) if old != new]
        self.top, self.height = changed[-1] - 11, 10

    def milliseconds_until_drawn(self):
        """Presses a key and waits until its letter is on the screen."""
        before = self.picture()
        began = time.perf_counter()
        self.press()
        while self.picture() == before:
            assert time.perf_counter() - began < 10, "nothing was drawn"
        return 1000 * (time.perf_counter() - began)

    def close(self):
        X11.XCloseDisplay(self.display)


def processor_milliseconds(process):
    """Of all threads of the process."""
    total = 0
    for path in glob.glob(f"/proc/{process.pid}/task/*/schedstat"):
        with open(path, encoding="ascii") as file:
            total += int(file.read().split()[0])
    return total / 1e6


def processor_share(process, seconds):
    before = processor_milliseconds(process)
    time.sleep(seconds)
    return 100 * (processor_milliseconds(process) - before) / (1000 * seconds)


def write_piece(desktop, lines):
    path = os.path.join(desktop.folder, "large.csd")
    with open(path, "w", encoding="ascii") as file:
        file.write("<CsoundSynthesizer>\r\n<CsScore>\r\n")
        for line in range(lines):
            file.write(f"i1 {line * 0.25:9.2f} .5 440 1200\r\n")
        file.write("\r\n</CsScore>\r\n</CsoundSynthesizer>\r\n")
    return path


def typed(screen, process):
    """The processor time of each key and what follows it, and the time until the screen shows it."""
    costs, delays = [], []
    for _ in range(KEYS):
        before = processor_milliseconds(process)
        delays.append(screen.milliseconds_until_drawn())
        time.sleep(max(0, PAUSE - delays[-1] / 1000))
        costs.append(processor_milliseconds(process) - before)
    return costs, delays


def row(what, lines, value, unit, limit=0):
    print(f"{what}\t{lines}\t{value:.3f}\t{unit}\t{limit}", flush=True)


def measure(desktop, lines):
    process = desktop.start_program(write_piece(desktop, lines))
    desktop.window("large.csd")
    screen = Screen(desktop.environment["DISPLAY"])
    time.sleep(LOOKING_ROUND)
    row("idle program", lines, processor_share(process, IDLE), "% of a core", 0.5)
    at_the_end = ["ctrl+End", "Up", "Up", "Up"]
    for where, keys in [("at the top", ["ctrl+Home"]), ("at the end", at_the_end)]:
        desktop.key(*keys)
        time.sleep(LOOKING_ROUND)
        screen.find_caret()
        costs, delays = typed(screen, process)
        row(f"key {where}, processor, median", lines, statistics.median(costs), "ms", 2)
        row(f"key {where}, processor, mean", lines, statistics.mean(costs), "ms", 2)
        row(f"key {where}, on the screen", lines, statistics.median(delays), "ms", 4)
    screen.close()
    process.kill()
    process.wait()
    desktop.processes.remove(process)


with Desktop(os.path.abspath(PROGRAM_FOLDER)) as desktop:
    for size in SIZES:
        measure(desktop, size)
