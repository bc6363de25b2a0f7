#!/usr/bin/env python3
"""The typical road: started with an orchestra, the program finds the score and the bookmarks of
both, colours and explains the text, saves, compiles with the real compiler, shows its log, and
leads to the line of the error.

  typical_road.py PROGRAM-FOLDER TOOLS-FOLDER"""

import os
import shutil
import subprocess
import sys

from desktop import VERSION, Desktop, wait_for

PROGRAM_FOLDER, TOOLS_FOLDER = sys.argv[1:]
TITLE = f"ArdiphonPro - Version {VERSION}"
OPCODE_FIELD = 60  # pixels from the top of the window, under its menu bar and toolbar
FIRST_LINE = 124
LINE_HEIGHT = 16
TEXT_LEFT = 75

ORCHESTRA = """oscili = 1
sr = 44100
ksmps = 32
0dbfs = 1
instr 1
  a1 diskin2 "nowhere.wav", 1
  out a1
endin
instr 2
  out oscili(0.2, 440)
endin
"""
ERROR_LINE = '  a1 diskin2 "nowhere.wav", 1'
BOOKMARKED_LINE = 4


def write(desktop, name, text):
    path = os.path.join(desktop.folder, name)
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)
    return path


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def bookmarks(line):
    records = [f"{line:<20}{'-> a bookmark':<20}"] + ["[NONE]".ljust(20) * 2] * 14
    return "".join(records)


def first_settings(desktop):
    subprocess.run(
        [os.path.join(TOOLS_FOLDER, "first_settings"), "FileCSound", shutil.which("csound")],
        env=desktop.environment,
        check=True,
    )


def click(desktop, x, y):
    window = str(desktop.display.active())
    desktop.tell("xdotool", "mousemove", "--window", window, str(x), str(y), "click", "1")


def line_shows(desktop, line, color):
    """Whether a part of the line has a point of that red, green and blue."""
    left, top, _, _ = desktop.display.place(desktop.display.active())
    top += FIRST_LINE + (line - 1) * LINE_HEIGHT - 7
    rows = desktop.display.rows(left + TEXT_LEFT - 10, top, 200, 14)
    return any(bytes(color) == row[at : at + 3] for row in rows for at in range(0, len(row), 3))


def explained(desktop):
    click(desktop, TEXT_LEFT, FIRST_LINE)
    click(desktop, 300, OPCODE_FIELD)
    return desktop.copied_text()


def open_project(desktop, orchestra):
    program = desktop.start_program(orchestra)
    desktop.window(TITLE)
    wait_for("the orchestra", lambda: "instr 1" in desktop.copied_text())
    desktop.key("F12")
    wait_for("the score", lambda: desktop.copied_text() == "i1 0 1\ni2 0 1")
    return program


def look_around(desktop):
    desktop.key("F11", "ctrl+Home")
    wait_for("the opcode's colour", lambda: line_shows(desktop, 1, (0, 0, 255)))
    wait_for("the bookmark", lambda: line_shows(desktop, BOOKMARKED_LINE, (240, 0, 0)))
    wait_for("the opcode's explanation", lambda: explained(desktop).startswith("[oscili] - "))


def edit_and_save(desktop, orchestra, score):
    click(desktop, TEXT_LEFT, FIRST_LINE)
    desktop.key("ctrl+Home")
    desktop.type(";")
    desktop.key("F12", "ctrl+End", "Return")
    desktop.type("e")
    desktop.key("ctrl+s")
    wait_for("the saved score", lambda: read(score) == "i1 0 1\ni2 0 1\ne")
    wait_for("the saved orchestra", lambda: read(orchestra) == ";" + ORCHESTRA)


def compile_project(desktop):
    dialog = "CSound Console Compiler"
    desktop.key("F11")
    desktop.key_until(["F3"], dialog, lambda: desktop.has_focus(dialog))
    desktop.key("alt+c")
    return wait_for(
        "the banner over the log",
        lambda: (text := desktop.copied_text()) and "Finished!!!" in text and text,
    )


def go_to_error(desktop):
    desktop.key("Tab")
    desktop.key_until(["Return"], "the editor", lambda: desktop.has_focus(TITLE))
    desktop.key_until(
        ["ctrl+c"],
        "the selected line",
        lambda: desktop.tell("xclip", "-selection", "clipboard", "-o") == ERROR_LINE.strip(),
    )


with Desktop(PROGRAM_FOLDER) as desktop:
    first_settings(desktop)
    orchestra = write(desktop, "a piece.ORC", ORCHESTRA)
    score = write(desktop, "a piece.sco", "i1 0 1\ni2 0 1")
    write(desktop, "a piece.bko", bookmarks(BOOKMARKED_LINE))

    program = open_project(desktop, orchestra)
    look_around(desktop)
    edit_and_save(desktop, orchestra, score)
    log = compile_project(desktop)
    assert "INIT ERROR in instr 1 (opcode diskin2) line 6:" in log, log
    assert os.path.getsize(os.path.join(desktop.folder, "a piece.wav")) > 44100
    wait_for("the end of the compilers", lambda: not desktop.processes_named("csound"))
    go_to_error(desktop)

    desktop.key_until(["alt+F4"], "the program's end", lambda: program.poll() is not None)
    assert program.returncode == 0, program.returncode
    assert read(orchestra) == ";" + ORCHESTRA
    assert os.listdir(desktop.temporary) == [], os.listdir(desktop.temporary)
