#!/usr/bin/env python3
"""The road of a project: started with an orchestra, the program finds the score, colours and
explains the text, and saves both.

  open_project.py PROGRAM-FOLDER"""

import os
import sys

from desktop import Desktop, wait_for

PROGRAM_FOLDER = sys.argv[1]
TITLE = "ArdiphonPro - Version 2.3.0"
OPCODE_FIELD = 60  # pixels from the top of the window, under its menu bar and toolbar
FIRST_LINE = 124
TEXT_LEFT = 75


def write(desktop, name, text):
    path = os.path.join(desktop.folder, name)
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)
    return path


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def click(desktop, x, y):
    window = desktop.tell("xdotool", "getactivewindow")
    desktop.tell("xdotool", "mousemove", "--window", window, str(x), str(y), "click", "1")


def pixels(desktop, width, height, x, y):
    """The colours of a part of the window, as text."""
    window = desktop.tell("xdotool", "getactivewindow")
    part = f"{width}x{height}+{x}+{y}"
    return desktop.tell("import", "-window", window, "-crop", part, "-depth", "8", "txt:-")


def explained(desktop):
    click(desktop, TEXT_LEFT, FIRST_LINE)
    click(desktop, 300, OPCODE_FIELD)
    return desktop.copied_text()


with Desktop(PROGRAM_FOLDER) as desktop:
    orchestra = write(desktop, "a piece.ORC", "oscili\ninstr 1\nendin\n")
    score = write(desktop, "a piece.sco", "i1 0 1\n")
    program = desktop.start_program(orchestra)
    desktop.window(TITLE)
    wait_for("the orchestra", lambda: "instr 1" in desktop.copied_text())
    desktop.key("F12")
    wait_for("the score", lambda: desktop.copied_text() == "i1 0 1")

    desktop.key("F11", "ctrl+Home")
    wait_for("the opcode's colour",
             lambda: "#0000FF" in pixels(desktop, 60, 14, TEXT_LEFT - 10, FIRST_LINE - 7))
    wait_for("the opcode's explanation",
             lambda: explained(desktop).startswith("[oscili] - "))

    click(desktop, TEXT_LEFT, FIRST_LINE)
    desktop.key("F12", "ctrl+End")
    desktop.type("e")
    desktop.key("ctrl+s")
    wait_for("the saved score", lambda: read(score) == "i1 0 1\ne")
    assert read(orchestra) == "oscili\ninstr 1\nendin\n"

    desktop.key("alt+F4")
    wait_for("the program's end", lambda: program.poll() is not None)
    assert program.returncode == 0, program.returncode
