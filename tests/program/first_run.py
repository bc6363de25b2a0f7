#!/usr/bin/env python3
"""On the first run the open dialog begins in the folder of the examples; a folder that the user has
chosen stays.

  first_run.py PROGRAM-FOLDER TOOLS-FOLDER EXAMPLES-FOLDER"""

import os
import subprocess
import sys

from desktop import VERSION, Desktop

PROGRAM_FOLDER, TOOLS_FOLDER, EXAMPLES = sys.argv[1:]


def prepare(desktop):
    tool = os.path.join(TOOLS_FOLDER, "first_settings")
    subprocess.run([tool, EXAMPLES], env=desktop.environment, check=True)


def settings_file(desktop):
    return os.path.join(desktop.environment["XDG_CONFIG_HOME"], "Ardiphon", "settings.ini")


def setting(desktop, name):
    with open(settings_file(desktop), encoding="utf-8") as file:
        return [line.strip() for line in file if name in line]


def open_by_name(desktop, name):
    """Browses from the start window and types nothing but the file's name."""
    dialog = "Open Files"
    desktop.key_until(["b"], dialog, lambda: desktop.has_focus(dialog))
    desktop.type(name)
    title = f"{os.path.join(EXAMPLES, name)} - ArdiphonPro - Version {VERSION}"
    desktop.key_until(["Return"], title, lambda: desktop.has_focus(title))


def leave(desktop, program):
    desktop.key_until(["alt+F4"], "the program's end", lambda: program.poll() is not None)
    assert program.returncode == 0, program.returncode


with Desktop(PROGRAM_FOLDER) as desktop:
    prepare(desktop)
    program = desktop.start_program()
    desktop.window("ArdiphonPro - CSound Files Association")
    desktop.key_until(["alt+n"], "the chooser", lambda: desktop.has_focus("ArdiphonPro Startup"))
    open_by_name(desktop, "bells.csd")
    leave(desktop, program)

    # A new user has the colours by meaning, also after saved settings; who had the program before
    # and was never asked keeps the colours of old.
    assert setting(desktop, "ColoursByMeaning")[0].endswith("=1"), setting(desktop, "Colours")
    chosen = setting(desktop, "WorkingDirectory")
    assert len(chosen) == 1 and chosen[0].endswith(EXAMPLES), chosen
    with open(settings_file(desktop), encoding="utf-8") as file:
        text = file.read()
    with open(settings_file(desktop), "w", encoding="utf-8") as file:
        file.write(text.replace(EXAMPLES, desktop.folder))
    prepare(desktop)
    assert setting(desktop, "WorkingDirectory")[0].endswith(desktop.folder)

    with open(settings_file(desktop), encoding="utf-8") as file:
        lines = file.readlines()
    with open(settings_file(desktop), "w", encoding="utf-8") as file:
        file.writelines(line for line in lines if "ColoursByMeaning" not in line)
    prepare(desktop)
    assert setting(desktop, "ColoursByMeaning") == []
