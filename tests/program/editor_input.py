#!/usr/bin/env python3
"""Keys as a user has them, under a window manager: the menu bar and the popup from the keyboard.

  editor_input.py PROGRAM-FOLDER TOOLS-FOLDER"""

import os
import subprocess
import sys
from contextlib import contextmanager

from desktop import Desktop, wait_for

PROGRAM_FOLDER, TOOLS_FOLDER = sys.argv[1:]
TITLE = "ArdiphonPro - Version 2.3.0"

# Places on the screen, with the window maximised.
FIRST_MENU = (40, 20, 4, 20)  # width, height, left, top


def path_of(desktop, name):
    return os.path.join(desktop.folder, name)


def write(desktop, name, text):
    with open(path_of(desktop, name), "w", encoding="utf-8") as file:
        file.write(text)
    return path_of(desktop, name)


@contextmanager
def opened(desktop, path, text):
    """The program with that document, whose caret stands at the top."""
    program = desktop.start_program(path)
    try:
        desktop.window(TITLE)
        wait_for("the document", lambda: text in desktop.copied_text())
        desktop.key("ctrl+Home")
        yield program
        assert program.poll() is None, program.returncode
    finally:
        program.kill()
        program.wait()


def click(desktop, x, y, button=1):
    desktop.tell("xdotool", "mousemove", str(x), str(y), "click", str(button))


def pixels(desktop, width, height, left, top):
    """The rows of a part of the screen, each three bytes a pixel."""
    part = f"{width}x{height}+{left}+{top}"
    command = ["import", "-window", "root", "-crop", part, "-depth", "8", "rgb:-"]
    rows = subprocess.run(command, env=desktop.environment, capture_output=True, check=True).stdout
    return [rows[at : at + 3 * width] for at in range(0, len(rows), 3 * width)]


def text_is(desktop, text):
    """Waits until the control that has the focus holds that text; its caret is at the end then."""
    wait_for(f"the text {text!r}", lambda: desktop.copied_text() == text)
    desktop.key("ctrl+End")


def select_all_from_menu(desktop, *opener):
    """By the last entry of the menu Edit."""
    desktop.key(*opener, "Right", "Down", "Up", "Return")


# The menu bar and the popup. -----------------------------------------------------------------------


def menus_by_keys(desktop):
    with opened(desktop, write(desktop, "menus.csd", "one"), "one"):
        closed = pixels(desktop, *FIRST_MENU)
        for opener in ["F10", "alt"]:
            desktop.key(opener)
            wait_for("the marked menu", lambda: pixels(desktop, *FIRST_MENU) != closed)
            desktop.key(opener)
            wait_for("the menu bar as before", lambda: pixels(desktop, *FIRST_MENU) == closed)
            desktop.key(opener)
            wait_for("the marked menu", lambda: pixels(desktop, *FIRST_MENU) != closed)
            desktop.key("Escape")
            wait_for("the menu bar as before", lambda: pixels(desktop, *FIRST_MENU) == closed)
            select_all_from_menu(desktop, opener)
            desktop.type(opener)
            text_is(desktop, opener)
        desktop.key("alt+f", "ctrl+alt+x")  # with a key, Alt is the editor's
        desktop.type("!")
        text_is(desktop, "alt!")
        desktop.key("shift+F10", "a")  # Select All, in the popup
        desktop.type("popup")
        text_is(desktop, "popup")


def menus_of_the_focused_half(desktop):
    """An entry that is reached by keys acts on the editor that had the focus."""
    orchestra = write(desktop, "half.orc", "orchestra")
    write(desktop, "half.sco", "score")
    with opened(desktop, orchestra, "orchestra"):
        desktop.key("F12")
        for opener in ["F10", "alt"]:
            select_all_from_menu(desktop, opener)
            desktop.type(opener)
            text_is(desktop, opener)
        desktop.key("shift+F10", "a")
        desktop.type("popup")
        text_is(desktop, "popup")
        desktop.key("F11")
        text_is(desktop, "orchestra")


with Desktop(PROGRAM_FOLDER) as desktop:
    subprocess.run(
        [os.path.join(TOOLS_FOLDER, "first_settings")], env=desktop.environment, check=True
    )
    menus_by_keys(desktop)
    menus_of_the_focused_half(desktop)
