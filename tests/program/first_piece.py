#!/usr/bin/env python3
"""The road of a first visit: open the example, compile it with the real compiler, read the log,
find the sound, leave.

  first_piece.py PROGRAM-FOLDER TOOLS-FOLDER EXAMPLE"""

import os
import shutil
import subprocess
import sys
import wave

from desktop import VERSION, Desktop, wait_for

PROGRAM_FOLDER, TOOLS_FOLDER, EXAMPLE = sys.argv[1:]


def first_settings(desktop):
    subprocess.run(
        [os.path.join(TOOLS_FOLDER, "first_settings")],
        env=desktop.environment,
        check=True,
    )


def compile_the_piece(desktop, piece):
    desktop.window(f"{piece} - ArdiphonPro - Version {VERSION}")
    console = "CSound Console Compiler"
    desktop.key_until(["F3"], console, lambda: desktop.has_focus(console))
    desktop.key("alt+c")
    return wait_for(
        "the banner over the log",
        lambda: (text := desktop.copied_text()) and "Finished!!!" in text and text,
    )


def check_log(log):
    lines = log.split("\n")
    assert lines[0] == "=" * 50, lines[0]
    assert lines[1] == "Finished!!!", lines[1]
    assert lines[2].startswith("Elapsed time (mm:ss) -> 00:"), lines[2]
    assert lines[3] == "=" * 50, lines[3]
    assert lines[4:7] == ["", "", "CSound Compiler Details:"], lines[4:7]
    assert "0 errors in performance" in log
    assert "\x1b" not in log


def check_sound(path):
    with wave.open(path) as sound:
        assert sound.getframerate() == 44100
        assert sound.getnchannels() == 2
        assert sound.getnframes() > 6 * 44100


def leave(desktop, program):
    editor = f"ArdiphonPro - Version {VERSION}"
    desktop.key_until(["alt+x"], editor, lambda: desktop.has_focus(editor))
    desktop.key_until(["alt+F4"], "the program's end", lambda: program.poll() is not None)
    assert program.returncode == 0, program.returncode


with Desktop(PROGRAM_FOLDER) as desktop:
    first_settings(desktop)
    piece = os.path.join(desktop.folder, "a first piece.csd")
    shutil.copy(EXAMPLE, piece)
    with open(piece, "rb") as file:
        before = file.read()

    program = desktop.start_program(piece)
    check_log(compile_the_piece(desktop, piece))
    check_sound(os.path.join(desktop.folder, "first.wav"))
    wait_for("the end of the compilers", lambda: not desktop.processes_named("csound"))
    leave(desktop, program)

    with open(piece, "rb") as file:
        assert file.read() == before
    assert os.listdir(desktop.temporary) == [], os.listdir(desktop.temporary)
