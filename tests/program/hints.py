#!/usr/bin/env python3
"""The hint at the caret and the help at the pointer, with a real mouse and real keys: where they
stand on the screen, that the keys still go to the text, and when they go.

  hints.py PROGRAM-FOLDER TOOLS-FOLDER"""

import os
import subprocess
import sys
import time

from desktop import VERSION, Desktop, wait_for

PROGRAM_FOLDER, TOOLS_FOLDER = sys.argv[1:]
TITLE = f"ArdiphonPro - Version {VERSION}"

# Places on the screen, with the window maximised.
FIRST_LINE = 122  # the middle of it
LINE_HEIGHT = 16
TEXT = (200, 900)  # left and width
COLUMN = 7.8  # the width of a letter
FIRST_COLUMN = 196
WHEEL_DOWN = 5
TIP = b"\xff\xff\xdc"  # the colour of what is behind a tip

PIECE = """<CsoundSynthesizer>
<CsInstruments>
instr 1 ; a bell
  iamp = p4
  a1 oscili iamp, 440
  out a1
endin
</CsInstruments>
<CsScore>
i 1 0 1 1000
</CsScore>
</CsoundSynthesizer>
""" + "\n" * 100
CALL, ITS_NAME, ITS_ARGUMENT, NOTE, EMPTY = 5, 6, 13, 10, 30  # lines and columns


def row(line):
    return FIRST_LINE + (line - 1) * LINE_HEIGHT


def tip_rows(desktop):
    """The screen's rows with a tip over the text."""
    left, width = TEXT
    pixels = desktop.display.rows(left, 0, width, 1000)
    return [y for y, colors in enumerate(pixels) if colors.count(TIP * 3) > 0]


def shows(desktop):
    return bool(tip_rows(desktop))


def gone(desktop, why):
    wait_for(f"no tip {why}", lambda: not shows(desktop))


def stays_gone(desktop, seconds=1):
    """For what would come after a time: the pointer's rest, or the caret's."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        assert not shows(desktop)
        time.sleep(0.05)


def point(desktop, line, column):
    x = round(FIRST_COLUMN + (column + 0.5) * COLUMN)
    desktop.tell("xdotool", "mousemove", "--sync", str(x), str(row(line)))


def caret(desktop, line, column):
    desktop.key("ctrl+Home", *["Down"] * (line - 1))
    desktop.key("Home", *["Right"] * column)


def hint(desktop):
    """Above the line of the caret, and gone with the call, Esc, the wheel and the focus."""
    caret(desktop, CALL, ITS_ARGUMENT)
    wait_for("the hint", lambda: shows(desktop))
    rows = tip_rows(desktop)
    assert row(CALL) - 3 * LINE_HEIGHT < rows[0] and rows[-1] < row(CALL) - LINE_HEIGHT // 2, rows
    assert desktop.has_focus(TITLE)
    desktop.key("Escape")
    gone(desktop, "after Esc")
    desktop.key("Right")
    stays_gone(desktop, 0.3)
    caret(desktop, 1, 0)
    desktop.settle()
    time.sleep(0.1)  # the caret rests there
    caret(desktop, NOTE, 9)
    wait_for("the fields", lambda: shows(desktop))
    desktop.tell("xdotool", "click", str(WHEEL_DOWN))
    gone(desktop, "after the wheel")
    desktop.key("ctrl+Home")
    caret(desktop, CALL, ITS_ARGUMENT)
    wait_for("the hint again", lambda: shows(desktop))
    desktop.key("ctrl+f")
    desktop.window("Find")
    gone(desktop, "in another window")
    desktop.key("Escape")
    desktop.window(TITLE)
    caret(desktop, 1, 0)
    gone(desktop, "outside of calls")


def hover(desktop):
    """After the pointer rested on a name; not between names, and gone with the pointer."""
    point(desktop, CALL, ITS_NAME)
    wait_for("the opcode's help", lambda: shows(desktop))
    point(desktop, CALL, ITS_NAME + 2)
    desktop.settle()
    assert shows(desktop), "it goes within its name"
    point(desktop, EMPTY, 5)
    gone(desktop, "off the name")
    stays_gone(desktop)
    point(desktop, 3, 12)  # in a comment
    stays_gone(desktop)
    point(desktop, NOTE, 9)
    wait_for("the p-field's help", lambda: shows(desktop))
    desktop.tell("xdotool", "click", str(WHEEL_DOWN))
    gone(desktop, "after the wheel")
    desktop.key("ctrl+Home")
    point(desktop, EMPTY, 5)
    point(desktop, CALL, ITS_NAME)
    wait_for("the opcode's help again", lambda: shows(desktop))
    desktop.type(" ")
    gone(desktop, "after a key")
    desktop.key("BackSpace")
    point(desktop, EMPTY, 5)


with Desktop(PROGRAM_FOLDER) as desktop:
    subprocess.run(
        [os.path.join(TOOLS_FOLDER, "first_settings")], env=desktop.environment, check=True
    )
    path = os.path.join(desktop.folder, "piece.csd")
    with open(path, "w", encoding="utf-8") as file:
        file.write(PIECE)
    program = desktop.start_program(path)
    desktop.window(TITLE)
    wait_for("the document", lambda: desktop.copied_text() == PIECE.rstrip("\n"))
    desktop.key("ctrl+Home")
    point(desktop, EMPTY, 5)
    hint(desktop)
    hover(desktop)
    assert desktop.copied_text() == PIECE.rstrip("\n")
    assert program.poll() is None, program.returncode
