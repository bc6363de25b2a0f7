#!/usr/bin/env python3
"""What a piece includes, opened at its line in a window of its own: from the outline by a click, by
its name, and from a note.

  included_files.py PROGRAM-FOLDER TOOLS-FOLDER"""

import os
import subprocess
import sys

from desktop import VERSION, Desktop, wait_for

PROGRAM_FOLDER, TOOLS_FOLDER = sys.argv[1:]
TOOLS_WINDOW = "tools.inc - ArdiphonPro"
PROJECT = f"ArdiphonPro - Version {VERSION}"  # the title of a window with an orchestra and a score
FIRST_ROW = (1150, 91)  # of the outline
ROW_HEIGHT = 14

PIECE = """<CsoundSynthesizer>
<CsInstruments>
#include "lib/tools.inc"
#include "voices.orc"
instr 1
endin
</CsInstruments>
<CsScore>
i "Reed" 0 1
</CsScore>
</CsoundSynthesizer>
"""
TOOLS = "".join(f"; line {line}\n" for line in range(1, 200)) + "instr Bell ;the bell\nendin\n"
VOICES = "sr = 44100\n\ninstr Reed ;the reed\nendin\n"


def write(desktop, name, text):
    path = os.path.join(desktop.folder, name)
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)
    return path


def caret_line(desktop):
    """The text of the line of the caret."""
    desktop.key("Home", "shift+End", "ctrl+c", "Home")
    desktop.settle()
    return desktop.tell("xclip", "-selection", "clipboard", "-o")


def opens(desktop, title, line):
    """Another window with that in its title comes to the front, with its caret in that line,
    and is then closed again."""

    def is_in_front():
        name = desktop.display.name(desktop.display.active())
        return desktop.has_focus(title) and "piece.csd" not in name

    wait_for(f"the window {title!r}", is_in_front)
    wait_for(f"the line {line!r}", lambda: caret_line(desktop) == line)
    desktop.type("x")  # in sight, and where one types
    desktop.key("ctrl+z")
    assert len(desktop.processes_named("ArdiphonPro")) == 2
    desktop.key_until(
        ["alt+F4"],
        "the end of that window",
        lambda: len(desktop.processes_named("ArdiphonPro")) == 1,
    )
    desktop.window("piece.csd - ")


with Desktop(PROGRAM_FOLDER) as desktop:
    subprocess.run(
        [os.path.join(TOOLS_FOLDER, "first_settings")], env=desktop.environment, check=True
    )
    write(desktop, "lib/tools.inc", TOOLS)
    write(desktop, "voices.orc", VOICES)
    write(desktop, "voices.sco", "i 1 0 1\n")
    program = desktop.start_program(write(desktop, "piece.csd", PIECE))
    desktop.window("piece.csd - ")
    wait_for("the document", lambda: desktop.copied_text() == PIECE.rstrip("\n"))

    desktop.key_until(["ctrl+shift+o"], "the names", lambda: desktop.has_focus("Go to Name"))
    desktop.type("bell")
    desktop.key("Return")
    opens(desktop, TOOLS_WINDOW, "instr Bell ;the bell")

    desktop.key("ctrl+Home", *["Down"] * 8)
    wait_for("the note", lambda: caret_line(desktop) == 'i "Reed" 0 1')
    desktop.key("ctrl+shift+i")
    opens(desktop, PROJECT, "instr Reed ;the reed")

    # Orchestra, the first file, Bell, the second file, Reed, instr 1, Score.
    desktop.key("ctrl+shift+l")
    desktop.settle(ticks=60)

    def click(number):
        desktop.tell(
            "xdotool", "mousemove", str(FIRST_ROW[0]), str(FIRST_ROW[1] + number * ROW_HEIGHT),
            "click", "1",
        )

    click(2)
    opens(desktop, TOOLS_WINDOW, "instr Bell ;the bell")
    click(3)
    opens(desktop, PROJECT, "sr = 44100")
    click(5)
    wait_for("the instrument of the piece", lambda: caret_line(desktop) == "instr 1")

    # Its own run is told nothing of a line.
    other = desktop.start_program(os.path.join(desktop.folder, "voices.orc"))
    opens(desktop, PROJECT, "sr = 44100")
    other.wait()
    assert program.poll() is None, program.returncode
