#!/usr/bin/env python3
"""The file types as the desktop's own tools see them: the question of the first start is answered
with Yes, and then the system opens documents in the real program.

  file_types.py PROGRAM-FOLDER TOOLS-FOLDER"""

import os
import shutil
import subprocess
import sys
import tempfile

from desktop import VERSION, Desktop, wait_for

PROGRAM_FOLDER, TOOLS_FOLDER = sys.argv[1:]
OPENER = "ardiphon-opener.desktop"
ENDINGS = ["csd", "orc", "sco"]
PROJECT = f"ArdiphonPro - Version {VERSION}"
MINE = b"# mine\n[Default Applications]\ntext/plain=another.desktop\n"


def answer_first_question(desktop):
    """The question comes at the first start, and not at the next one."""
    subprocess.run(
        [os.path.join(TOOLS_FOLDER, "first_settings")], env=desktop.environment, check=True
    )
    program = desktop.start_program()
    desktop.window("ArdiphonPro - CSound Files Association")
    desktop.key_until(["alt+y"], "the box", lambda: desktop.has_focus("Files association"))
    # Left to itself, the window manager gives the focus to the chooser now and then only.
    with desktop.busy_manager():
        desktop.key("Return")
        wait_for("the end of the question", lambda: not desktop.shows("association"))
        wait_for("the end of the question", lambda: not desktop.shows("Association"))
    desktop.window("ArdiphonPro Startup")
    program.terminate()
    program.wait()
    program = desktop.start_program()
    desktop.window("ArdiphonPro Startup")
    program.terminate()
    program.wait()


def check_icons(desktop, program_folder):
    """Each type has its own picture."""
    theme = os.path.join(desktop.environment["XDG_DATA_HOME"], "icons", "hicolor")
    for ending in ENDINGS:
        for size, suffix in [("scalable", "svg"), ("48x48", "png")]:
            folder = "" if size == "scalable" else size
            given = os.path.join(program_folder, "Icons", folder, f"{ending}.{suffix}")
            icon = os.path.join(theme, size, "mimetypes", f"ardiphon-csound-{ending}.{suffix}")
            with open(given, "rb") as one, open(icon, "rb") as other:
                assert one.read() == other.read(), icon


def check_defaults(desktop, expected):
    for ending in ENDINGS:
        kind = f"text/x-csound-{ending}"
        assert desktop.tell("xdg-mime", "query", "default", kind) == expected, kind
        told = desktop.tell("gio", "mime", kind).split("\n")[0]
        assert told.endswith(expected or f"No default applications for “{kind}”"), told


def open_with_the_system(desktop, name, title):
    path = os.path.join(desktop.folder, name)
    with open(path, "w") as file:
        file.write("; a piece\n")
    opener = desktop.start(["xdg-open", path])
    wait_for(f"{title!r} to open", lambda: desktop.has_focus(title))
    desktop.key_until(["alt+F4"], "the end", lambda: not desktop.processes_named("ArdiphonPro"))
    opener.wait()
    with open(path) as file:
        assert file.read() == "; a piece\n"
    os.remove(path)


def check(program_folder, kind_of_desktop):
    with Desktop(program_folder) as desktop:
        desktop.environment["XDG_DATA_HOME"] = os.path.join(desktop.folder, "data")
        # What the machine has installed counts for nothing here.
        desktop.environment["XDG_DATA_DIRS"] = os.path.join(desktop.folder, "system", "data")
        desktop.environment["XDG_CONFIG_DIRS"] = os.path.join(desktop.folder, "system", "config")
        desktop.environment["XDG_CURRENT_DESKTOP"] = kind_of_desktop
        defaults = os.path.join(desktop.folder, "config", "mimeapps.list")
        os.mkdir(os.path.dirname(defaults))
        with open(defaults, "wb") as file:
            file.write(MINE)

        check_defaults(desktop, "")
        answer_first_question(desktop)
        check_defaults(desktop, OPENER)
        check_icons(desktop, program_folder)
        with open(defaults, "rb") as file:
            lines = file.read().split(b"\n")
        assert [line for line in lines if OPENER.encode() not in line] == MINE.split(b"\n"), lines

        open_with_the_system(desktop, "a piece.csd", "a piece.csd")
        open_with_the_system(desktop, "a piece.ORC", PROJECT)
        open_with_the_system(desktop, "a piece.sco", PROJECT)


check(PROGRAM_FOLDER, "")
with tempfile.TemporaryDirectory(prefix="my programs ") as folder:
    blanks = os.path.join(folder, "Ardiphon Pro")
    shutil.copytree(PROGRAM_FOLDER, blanks)
    check(blanks, "GNOME")
