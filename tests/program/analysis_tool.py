#!/usr/bin/env python3
"""An analysis from end to end: the menu, the form, the real utility in a real terminal that stays
until a key is pressed.

  analysis_tool.py PROGRAM-FOLDER TOOLS-FOLDER"""

import math
import os
import shutil
import struct
import subprocess
import sys
import wave

from desktop import VERSION, Desktop, wait_for

PROGRAM_FOLDER, TOOLS_FOLDER = sys.argv[1:]


def make_sound(path):
    with wave.open(path, "wb") as sound:
        sound.setnchannels(1)
        sound.setsampwidth(2)
        sound.setframerate(44100)
        for i in range(22050):
            value = int(8000 * math.sin(i * 2 * math.pi * 110 / 44100))
            sound.writeframesraw(struct.pack("<h", value))


def first_settings(desktop):
    subprocess.run(
        [os.path.join(TOOLS_FOLDER, "first_settings"), "FileCSound", shutil.which("csound")],
        env=desktop.environment,
        check=True,
    )


def open_form(desktop, title):
    """Tools, CSound Analysis, and the last but two of its entries. The editor keeps the keys with
    Alt to itself, so the focus goes to the opcode's line above it first."""
    desktop.tell("xdotool", "mousemove", "640", "82", "click", "1")
    menu = ["alt+t", "a", "Up", "Up", "Up", "Return"]
    desktop.key_until(menu, title, lambda: desktop.has_focus(title))


def browse(desktop, form, sound):
    dialog = "Input File Name"
    desktop.key_until(["alt+b"], dialog, lambda: desktop.has_focus(dialog))
    desktop.type(sound)
    desktop.key("Return")
    wait_for(form, lambda: desktop.has_focus(form))


with Desktop(PROGRAM_FOLDER) as desktop:
    first_settings(desktop)
    # xterm is called by its own name: what the alternative stands for differs from one to another.
    names = os.path.join(desktop.folder, "names")
    os.mkdir(names)
    os.symlink(shutil.which("xterm"), os.path.join(names, "x-terminal-emulator"))
    desktop.environment["PATH"] = names + ":" + desktop.environment["PATH"]
    sound = os.path.join(desktop.folder, "a tone.wav")
    make_sound(sound)
    piece = os.path.join(desktop.folder, "piece.csd")
    with open(piece, "w") as file:
        file.write("<CsoundSynthesizer>\n</CsoundSynthesizer>\n")

    program = desktop.start_program(piece)
    editor = f"ArdiphonPro - Version {VERSION}"
    desktop.window(editor)
    form = "CVANAL - Impulse Response Soundfile Analysis"
    open_form(desktop, form)
    browse(desktop, form, sound)

    analysis = os.path.join(desktop.folder, "a tone.cv")
    terminal_name = "x-terminal-emul"  # as the kernel cuts it
    desktop.key_until(
        ["alt+a"], "the terminal", lambda: desktop.processes_named(terminal_name)
    )
    wait_for("the analysis", lambda: os.path.exists(analysis) and os.path.getsize(analysis) > 10000)
    consoles = wait_for("the console", lambda: desktop.processes_named("ArdiphonConsole"))
    wait_for("the end of the tool", lambda: not desktop.processes_named("csound"))
    assert os.readlink(f"/proc/{consoles[0]}/cwd") == os.path.dirname(
        os.path.realpath(shutil.which("csound"))
    )
    assert desktop.processes_named("ArdiphonConsole") == consoles
    terminal = wait_for(
        "the terminal", lambda: desktop.tell("xdotool", "search", "--class", "xterm").split()
    )
    desktop.tell("xdotool", "windowactivate", "--sync", terminal[-1])
    desktop.key_until(
        ["space"], "the terminal's end", lambda: not desktop.processes_named("ArdiphonConsole")
    )

    desktop.key_until(["alt+x"], editor, lambda: desktop.has_focus(editor))
    desktop.key_until(["alt+F4"], "the program's end", lambda: program.poll() is not None)
    assert program.returncode == 0, program.returncode
