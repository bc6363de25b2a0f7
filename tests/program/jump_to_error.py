#!/usr/bin/env python3
"""After a jump from the log of a compile the half with the error has the focus, whichever had it
before: what is typed goes there.

  jump_to_error.py PROGRAM-FOLDER"""

import os
import sys

from desktop import VERSION, Desktop, wait_for

(PROGRAM_FOLDER,) = sys.argv[1:]
TITLE = f"ArdiphonPro - Version {VERSION}"
DIALOG = "CSound Console Compiler"
COMPILER = """#!/bin/sh
for argument in "$@"; do
  case $argument in -O*) log=${argument#-O} ;; esac
done
cat "$HOME/message" > "$log"
"""


def write(desktop, name, text):
    path = os.path.join(desktop.folder, name)
    with open(path, "w", encoding="utf-8", newline="") as file:
        file.write(text)
    return path


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def choose_compiler(desktop):
    compiler = write(desktop, "compiler", COMPILER)
    os.chmod(compiler, 0o755)
    os.makedirs(os.path.join(desktop.folder, "config", "Ardiphon"))
    settings = f"[Software]\nArdiphon\\Settings\\FileCSound={compiler}\n"
    write(desktop, "config/Ardiphon/settings.ini", settings)


def jump(desktop, message, typed):
    """Compiles, goes to the line that the message names, types over it and saves."""
    write(desktop, "message", message)
    desktop.key_until(["F3"], DIALOG, lambda: desktop.has_focus(DIALOG))
    desktop.key("alt+c")
    wait_for("the log", lambda: message.split(" line")[0] in desktop.copied_text())
    desktop.key("Tab")
    desktop.key_until(["Return"], "the editor", lambda: desktop.has_focus(TITLE))
    desktop.type(typed)
    desktop.key("ctrl+s")


with Desktop(PROGRAM_FOLDER) as desktop:
    choose_compiler(desktop)
    orchestra = write(desktop, "piece.orc", "instr 1\nendin\n")
    score = write(desktop, "piece.sco", "i1 0 1\nz\n")
    program = desktop.start_program(orchestra)
    desktop.window(TITLE)
    wait_for("the orchestra", lambda: "instr 1" in desktop.copied_text())

    jump(desktop, "illegal opcode z, line 2\r\n\r\n", "e")
    wait_for("the score's line", lambda: read(score) == "i1 0 1\ne\n")
    assert read(orchestra) == "instr 1\nendin\n", read(orchestra)

    jump(desktop, "error: syntax error, line 2:\r\n", "ende")
    wait_for("the orchestra's line", lambda: read(orchestra) == "instr 1\nende\n")
    assert read(score) == "i1 0 1\ne\n", read(score)
    desktop.key_until(["alt+F4"], "the program's end", lambda: program.poll() is not None)
