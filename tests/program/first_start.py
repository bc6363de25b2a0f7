#!/usr/bin/env python3
"""The first start of an installed program by its command: compiler and manual are set, the question
comes once, and its answer No associates nothing.

  first_start.py FOLDER-OF-THE-COMMAND"""

import os
import shutil
import sys

from desktop import Desktop, wait_for

(COMMAND_FOLDER,) = sys.argv[1:]
MANUAL = "/usr/share/doc/csound-doc/html/index.html"


def settings(desktop):
    path = os.path.join(desktop.folder, "config", "Ardiphon", "settings.ini")
    with open(path) as file:
        return dict(line.rstrip("\n").split("=", 1) for line in file if "=" in line)


def stop(program):
    program.terminate()
    program.wait()


with Desktop(COMMAND_FOLDER) as desktop:
    desktop.environment["XDG_DATA_HOME"] = os.path.join(desktop.folder, "data")
    program = desktop.start_program()
    desktop.window("ArdiphonPro - CSound Files Association")
    assert settings(desktop) == {
        r"Ardiphon\InstallPath\First": "1",
        r"Ardiphon\Settings\FileCSound": shutil.which("csound"),
        r"Ardiphon\Settings\FileGuida": MANUAL,
        r"Ardiphon\Studio\ColoursByMeaning": "1",
    }, settings(desktop)
    desktop.key_until(["alt+n"], "the chooser", lambda: desktop.has_focus("ArdiphonPro Startup"))
    assert settings(desktop)[r"Ardiphon\InstallPath\First"] == "0"
    for name in ["applications", "mime", "icons"]:
        assert not os.path.exists(os.path.join(desktop.environment["XDG_DATA_HOME"], name)), name
    stop(program)

    program = desktop.start_program()
    wait_for("the chooser", lambda: desktop.has_focus("ArdiphonPro Startup"))
    assert settings(desktop)[r"Ardiphon\InstallPath\First"] == "0"
    stop(program)
