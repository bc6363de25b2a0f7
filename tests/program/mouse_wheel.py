#!/usr/bin/env python3
"""The wheel turned at every place of the settings changes none of them, and takes no focus.

  mouse_wheel.py PROGRAM-FOLDER TOOLS-FOLDER"""

import os
import subprocess
import sys

from desktop import VERSION, Desktop

PROGRAM_FOLDER, TOOLS_FOLDER = sys.argv[1:]
EDITOR = f"ArdiphonPro - Version {VERSION}"
STEP = 12  # pixels: no box is as low or as narrow


def settings(desktop):
    path = os.path.join(desktop.environment["XDG_CONFIG_HOME"], "Ardiphon", "settings.ini")
    with open(path, encoding="utf-8") as file:
        return dict(line.strip().split("=", 1) for line in file if "=" in line)


def open_settings(desktop):
    """The last but five of the entries of the menu File."""
    desktop.tell("xdotool", "mousemove", "640", "82", "click", "1")
    menu = ["alt+f", *["Up"] * 6, "Return"]
    desktop.key_until(menu, "the settings", lambda: desktop.has_focus("Settings"))


def turn_wheel_everywhere(desktop):
    told = desktop.tell("xdotool", "getactivewindow", "getwindowgeometry", "--shell")
    place = {name: int(value) for name, value in (line.split("=") for line in told.splitlines())}
    for y in range(place["Y"], place["Y"] + place["HEIGHT"], STEP):
        steps = []
        for x in range(place["X"], place["X"] + place["WIDTH"], STEP):
            steps += ["mousemove", str(x), str(y), "mousedown", "5", "mouseup", "5"]
        desktop.tell("xdotool", *steps)


def save_settings(desktop):
    desktop.key_until(["alt+s"], "the editor", lambda: desktop.has_focus(EDITOR))
    return settings(desktop)


with Desktop(PROGRAM_FOLDER) as desktop:
    subprocess.run(
        [os.path.join(TOOLS_FOLDER, "first_settings")], env=desktop.environment, check=True
    )
    piece = os.path.join(desktop.folder, "piece.csd")
    with open(piece, "w") as file:
        file.write("<CsoundSynthesizer>\n</CsoundSynthesizer>\n")
    program = desktop.start_program(piece)
    desktop.window(EDITOR)

    open_settings(desktop)
    before = save_settings(desktop)
    assert before[r"Ardiphon\Settings\WheelLines"] == "3", before
    open_settings(desktop)
    desktop.key("alt+g")
    turn_wheel_everywhere(desktop)
    assert save_settings(desktop) == before, settings(desktop)

    desktop.key_until(["alt+F4"], "the program's end", lambda: program.poll() is not None)
    assert program.returncode == 0, program.returncode
