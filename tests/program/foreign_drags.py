#!/usr/bin/env python3
"""Drags from another program: a file that is dropped on an editor opens and stays where it lies,
a text that is dropped is inserted, also where it was to be moved.

  foreign_drags.py PROGRAM-FOLDER

The other program is a second copy of this one: a process of its own, from which the window system
brings everything."""

import os
import re
import sys

from desktop import VERSION, Desktop, wait_for

(PROGRAM_FOLDER,) = sys.argv[1:]
TITLE = f"ArdiphonPro - Version {VERSION}"
FIRST_LINE = (210, 103)  # in an editor's window with all its tools
EMPTY_PLACE = (400, 500)
FIRST_FILE = (160, 70)  # in the dialog that opens files
DIALOG = "Open File"


def write(desktop, name, text):
    path = os.path.join(desktop.folder, name)
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)
    return path


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def open_on_half(desktop, path, key):
    """Starts a copy of the program and moves its window to a half of the screen."""
    program = desktop.start_program(path)
    title = f"{path} - {TITLE}"
    desktop.window(title)
    window = desktop.tell("xdotool", "getactivewindow")
    before = place(desktop, window)
    click(desktop, window, 100, 60)  # the editors keep the keys with Alt
    desktop.key("alt+w", key)
    wait_for("the half", lambda: place(desktop, window)[2] < before[2])
    return program, window


def place(desktop, window):
    """Left, top, width and height of a window without its frame."""
    text = desktop.tell("xwininfo", "-id", window)
    fields = ["Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"]
    return [int(re.search(rf"{field}:\s+(-?\d+)", text)[1]) for field in fields]


def move(desktop, x, y):
    desktop.tell("xdotool", "mousemove", str(x), str(y))


def click(desktop, window, x, y):
    desktop.tell("xdotool", "mousemove", "--window", window, str(x), str(y), "click", "1")


def inside(desktop, window, point):
    left, top, _, _ = place(desktop, window)
    return left + point[0], top + point[1]


def drag(desktop, source, start, target, end):
    """Presses at a place in one window and releases at one in the other, with stations for the
    programs to see."""
    start, end = inside(desktop, source, start), inside(desktop, target, end)
    stations = [[a + (b - a) * part // 20 for a, b in zip(start, end)] for part in range(1, 21)]
    move(desktop, *start)
    desktop.tell("xdotool", "mousedown", "1")
    for station in [*stations, (end[0] + 1, end[1])]:
        move(desktop, *station)
        # The source asks the target, which tells the source whether it takes this.
        for window in (source, target, source):
            assert desktop.hear(int(window)), "a window is gone"
    desktop.tell("xdotool", "mouseup", "1")


def title_of(desktop, window):
    return desktop.tell("xdotool", "getwindowname", window)


def drag_text(desktop, source, target, path):
    desktop.tell("xdotool", "windowactivate", "--sync", source)
    click(desktop, source, *EMPTY_PLACE)  # elsewhere, as two clicks in one place are a double one
    desktop.key("ctrl+a")
    drag(desktop, source, FIRST_LINE, target, FIRST_LINE)
    wait_for("the star of the changed text", lambda: title_of(desktop, target).endswith("*"))
    desktop.tell("xdotool", "windowactivate", "--sync", target)
    desktop.key("ctrl+s")
    wait_for("the inserted text", lambda: "dragged" in read(path) and read(path))


def drag_file(desktop, source, target, path):
    """Out of the dialog in which the other program opens files, onto a text that was changed: the
    question comes over this window while the other program waits in its dialog."""
    desktop.tell("xdotool", "windowactivate", "--sync", target)
    click(desktop, target, *EMPTY_PLACE)
    desktop.key("ctrl+Home")
    desktop.type(";")
    wait_for("the star", lambda: title_of(desktop, target).endswith("*"))
    desktop.tell("xdotool", "windowactivate", "--sync", source)
    click(desktop, source, *EMPTY_PLACE)
    desktop.key_until(["ctrl+o"], DIALOG, lambda: desktop.has_focus(DIALOG))
    dialog = desktop.tell("xdotool", "getactivewindow")
    drag(desktop, dialog, FIRST_FILE, target, FIRST_LINE)
    question = wait_for(
        "the question", lambda: desktop.tell("xdotool", "search", "--name", "^Save File$")
    )
    desktop.tell("xdotool", "windowactivate", "--sync", question)
    desktop.key_until(
        ["alt+y"], "the file's name", lambda: title_of(desktop, target) == f"{path} - {TITLE}"
    )
    assert os.path.exists(path)
    desktop.tell("xdotool", "windowactivate", "--sync", dialog)
    desktop.key_until(["Escape"], "the other editor", lambda: desktop.has_focus(TITLE))


with Desktop(PROGRAM_FOLDER) as desktop:
    os.mkdir(os.path.join(desktop.folder, "pieces"))
    first_file = write(desktop, "pieces/a.csd", "first\n")
    there = write(desktop, "pieces/there.csd", "dragged dragged\n")
    here = write(desktop, "here.csd", "here\n")
    first, target = open_on_half(desktop, here, "e")
    second, source = open_on_half(desktop, there, "i")
    drag_file(desktop, source, target, first_file)
    assert read(here) == ";here\n", read(here)
    drag_text(desktop, source, target, first_file)
    assert read(first_file) == "fidragged dragged\nrst\n", read(first_file)
    wait_for("the star where the text is gone", lambda: title_of(desktop, source).endswith("*"))
    desktop.tell("xdotool", "windowactivate", "--sync", source)
    desktop.key("ctrl+s")
    wait_for("the file without the text", lambda: read(there) == "")
    for program, window in ((first, target), (second, source)):
        desktop.tell("xdotool", "windowactivate", "--sync", window)
        desktop.key_until(["alt+F4"], "the program's end", lambda: program.poll() is not None)
