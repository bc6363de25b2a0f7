#!/usr/bin/env python3
"""The list of suggestions under a window manager: it opens as one types and never takes the focus,
keys and clicks take from it, and it goes when the window moves or another one gets the focus.

  completion.py PROGRAM-FOLDER TOOLS-FOLDER"""

import os
import sys

from desktop import VERSION, Desktop, wait_for

PROGRAM_FOLDER, TOOLS_FOLDER = sys.argv[1:]
TITLE = f"ArdiphonPro - Version {VERSION}"
PIECE = """<CsoundSynthesizer>
<CsInstruments>
instr 1

endin
</CsInstruments>
</CsoundSynthesizer>
"""
LINE = 4


def list_places(desktop):
    """Where the list is on the screen, as "x y width height"; "" where there is none. It is the one
    window of the program that the window manager does not know."""
    for window in desktop.tell("xdotool", "search", "--onlyvisible", "--class", "Ardiphon").split():
        info = desktop.tell("xwininfo", "-id", window)
        values = dict(
            line.strip().split(":", 1) for line in info.splitlines() if line.count(":") == 1
        )
        if values.get("Override Redirect State", "").strip() == "yes":
            keys = ["Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"]
            return " ".join(values[key].strip() for key in keys)
    return ""


def is_open(desktop):
    return list_places(desktop) != ""


def go_to_line(desktop):
    desktop.key("Escape", "ctrl+Home", *["Down"] * (LINE - 1), "Home", "shift+End")


def saved_line(desktop, path):
    """The line as it is in the file after a save."""
    desktop.key("ctrl+s")
    wait_for("the saved file", lambda: TITLE + "*" not in desktop.tell(
        "xdotool", "getactivewindow", "getwindowname"))
    desktop.settle()
    with open(path, encoding="utf-8") as file:
        return file.read().splitlines()[LINE - 1]


def opens_and_keeps_the_focus(desktop, path):
    go_to_line(desktop)
    desktop.type("asig oscil")
    wait_for("the list", lambda: is_open(desktop))
    assert desktop.has_focus(TITLE), "the list took the focus"
    desktop.key("Down", "Tab")
    wait_for("no list", lambda: not is_open(desktop))
    line = saved_line(desktop, path)
    assert line.startswith("asig oscil") and len(line) > len("asig oscil"), line


def takes_arguments(desktop, path):
    go_to_line(desktop)
    desktop.type("asig oscili")
    wait_for("the list", lambda: is_open(desktop))
    desktop.key("shift+Tab")
    wait_for("no list", lambda: not is_open(desktop))
    desktop.type("0.5")
    desktop.key("Tab")
    desktop.type("440")
    desktop.key("Tab")
    line = saved_line(desktop, path)
    assert line == "asig oscili 0.5, 440", line


def takes_what_is_clicked(desktop, path):
    go_to_line(desktop)
    desktop.type("asig oscil")
    wait_for("the list", lambda: is_open(desktop))
    x, y, _, height = (int(value) for value in list_places(desktop).split())
    desktop.tell("xdotool", "mousemove", str(x + 120), str(y + height // 10 + 8), "click", "1")
    wait_for("no list", lambda: not is_open(desktop))
    assert desktop.has_focus(TITLE), "the click took the focus"
    line = saved_line(desktop, path)
    assert line.startswith("asig ") and line != "asig oscil", line


def enter_is_a_new_line(desktop, path):
    go_to_line(desktop)
    desktop.type("asig osc")
    wait_for("the list", lambda: is_open(desktop))
    desktop.key("Return")
    wait_for("no list", lambda: not is_open(desktop))
    line = saved_line(desktop, path)
    assert line == "asig osc", line
    desktop.key("BackSpace")


def goes_with_the_focus(desktop):
    go_to_line(desktop)
    desktop.key("Home", "ctrl+space")
    wait_for("the list", lambda: is_open(desktop))
    desktop.key("ctrl+f")
    wait_for("no list", lambda: not is_open(desktop))
    desktop.key("Escape")


def main():
    with Desktop(PROGRAM_FOLDER) as desktop:
        path = os.path.join(desktop.folder, "piece.csd")
        with open(path, "w", encoding="utf-8") as file:
            file.write(PIECE)
        desktop.start_program(path)
        desktop.window(TITLE)
        opens_and_keeps_the_focus(desktop, path)
        takes_arguments(desktop, path)
        takes_what_is_clicked(desktop, path)
        enter_is_a_new_line(desktop, path)
        goes_with_the_focus(desktop)


main()
