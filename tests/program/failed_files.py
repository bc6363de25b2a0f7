#!/usr/bin/env python3
"""Files that cannot be opened or saved: the program says why and goes on.

  failed_files.py PROGRAM-FOLDER TOOLS-FOLDER"""

import os
import shutil
import sys

from desktop import VERSION, Desktop, wait_for

PROGRAM_FOLDER, TOOLS_FOLDER = sys.argv[1:]
TITLE_END = f" - ArdiphonPro - Version {VERSION}"
BOX = "ArdiphonPro"


def prepare(desktop):
    """The settings, so that nothing is asked at the start, and a folder for the pieces."""
    settings = os.path.join(desktop.environment["XDG_CONFIG_HOME"], "Ardiphon")
    os.makedirs(settings)
    with open(os.path.join(settings, "settings.ini"), "w", encoding="utf-8") as file:
        file.write("[Software]\nArdiphon\\Settings\\FileCSound=/usr/bin/csound\n")
    pieces = os.path.join(desktop.folder, "pieces")
    os.mkdir(pieces)
    return pieces


def write(folder, name, text):
    path = os.path.join(os.fsencode(folder), os.fsencode(name))
    with open(path, "wb") as file:
        file.write(text)
    return path


def box_is_shown(desktop):
    """A message box has the program's name alone as its title."""
    return desktop.display.name(desktop.display.active()) == BOX


def dismiss_box(desktop):
    wait_for("a message box", lambda: box_is_shown(desktop))
    picture = os.environ.get("BOX_PICTURE")
    if picture:  # for whoever wants to look at it
        desktop.tell("import", "-window", "root", picture)
    desktop.key_until(["Return"], "the box to go", lambda: not box_is_shown(desktop))


def leave(desktop, program):
    desktop.key_until(["alt+F4"], "the program's end", lambda: program.poll() is not None)
    assert program.returncode == 0, program.returncode


def name_that_is_no_text(desktop, pieces):
    """The chooser comes, as without a name; the folder holds what it held."""
    path = write(pieces, b"caf\xe9.csd", b"text\n")
    program = desktop.start_program(path)
    dismiss_box(desktop)
    desktop.window("ArdiphonPro Startup")
    leave(desktop, program)
    # A name within a folder that cannot be named itself.
    folder = os.path.join(os.fsencode(pieces), b"\xe9")
    os.mkdir(folder)
    write(folder, b"piece.csd", b"text\n")
    program = desktop.start([desktop.program, "piece.csd"], cwd=folder)
    dismiss_box(desktop)
    desktop.window("ArdiphonPro Startup")
    leave(desktop, program)
    assert sorted(os.listdir(os.fsencode(pieces))) == [b"caf\xe9.csd", b"\xe9"]


def side_file_that_is_a_fifo(desktop, pieces):
    path = write(pieces, "piece.csd", b"text\n").decode()
    os.mkfifo(os.path.join(pieces, "piece.bkm"))
    program = desktop.start_program(path)
    desktop.window(path + TITLE_END)
    leave(desktop, program)


def save_without_its_folder(desktop, pieces):
    """The box comes once; the text stays changed, and is written when the folder is back."""
    sub = os.path.join(pieces, "sub")
    os.mkdir(sub)
    path = write(sub, "piece.csd", b"text\n").decode()
    program = desktop.start_program(path)
    desktop.window(path + TITLE_END)
    desktop.type("x")
    desktop.window(path + TITLE_END + "*")
    shutil.rmtree(sub)
    desktop.key("ctrl+s")
    dismiss_box(desktop)
    desktop.window(path + TITLE_END + "*")
    os.mkdir(sub)
    desktop.key("ctrl+s")

    def saved():
        return os.path.exists(path) and open(path, "rb").read() == b"xtext\n"

    wait_for("the saved file", saved)
    leave(desktop, program)


def small_file_of_two_names(desktop, pieces):
    """A file that has to be written in place, smaller than any buffer."""
    path = write(pieces, "linked.csd", b"text\n").decode()
    other = os.path.join(pieces, "other name")
    os.link(path, other)
    program = desktop.start_program(path)
    desktop.window(path + TITLE_END)
    desktop.type("x")
    desktop.window(path + TITLE_END + "*")
    desktop.key("ctrl+s")
    wait_for("the save", lambda: open(other, "rb").read() == b"xtext\n")
    leave(desktop, program)


def run_folder_cleared_away(desktop, pieces):
    """The log of a compile is shown though somebody took the folder for it."""
    path = write(
        pieces,
        "silent.csd",
        b"<CsoundSynthesizer>\n<CsOptions>\n-n\n</CsOptions>\n<CsInstruments>\ninstr 1\nendin\n"
        b"</CsInstruments>\n<CsScore>\ni1 0 0.1\n</CsScore>\n</CsoundSynthesizer>\n",
    ).decode()
    program = desktop.start_program(path)
    desktop.window(path + TITLE_END)
    runs = [name for name in os.listdir(desktop.temporary) if name.startswith("ardiphon-")]
    assert len(runs) == 1, runs
    shutil.rmtree(os.path.join(desktop.temporary, runs[0]))
    console = "CSound Console Compiler"
    desktop.key_until(["F3"], "the console", lambda: desktop.has_focus(console))
    desktop.key("alt+c")
    text = wait_for("the log", lambda: finished_log(desktop))
    assert "overall samples out of range" in text, text
    desktop.key_until(["alt+x"], "the editor", lambda: desktop.has_focus(path + TITLE_END))
    leave(desktop, program)
    assert not os.path.exists(os.path.join(desktop.temporary, runs[0]))


def finished_log(desktop):
    text = desktop.copied_text()
    return text if "Finished!!!" in text else ""


with Desktop(PROGRAM_FOLDER) as desktop:
    pieces = prepare(desktop)
    name_that_is_no_text(desktop, pieces)
    side_file_that_is_a_fifo(desktop, pieces)
    save_without_its_folder(desktop, pieces)
    small_file_of_two_names(desktop, pieces)
    run_folder_cleared_away(desktop, pieces)
