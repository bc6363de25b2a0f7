#!/usr/bin/env python3
"""The menu "Text" with real keys, and a rectangle with a real mouse under a window manager.

  line_commands.py PROGRAM-FOLDER"""

import os
import sys

from desktop import VERSION, Desktop, wait_for

PROGRAM_FOLDER = sys.argv[1]
TITLE = f"ArdiphonPro - Version {VERSION}"

# Places on the screen, with the window maximised.
FIRST_LINE = 122  # the middle of it
LINE_HEIGHT = 16
FIRST_COLUMN = 195
COLUMN_WIDTH = 8

CODE = """<CsoundSynthesizer>
aone   = 1
atwo   = 2
athree = 3

aone   = atwo
</CsoundSynthesizer>
"""


def place(line, column):
    """Left in a letter."""
    return (
        FIRST_COLUMN + COLUMN_WIDTH * column + 1,
        FIRST_LINE + (line - 1) * LINE_HEIGHT,
    )


class Text:
    def __init__(self, desktop, path):
        self.desktop = desktop
        self.path = path

    def becomes(self, what, *lines):
        """Saves until the file has these lines, from the second on."""
        wanted = CODE.splitlines()
        wanted[1 : 1 + len(lines)] = lines

        def is_so():
            self.desktop.key("ctrl+s")
            self.desktop.settle()
            with open(self.path) as file:
                self.found = file.read().splitlines()
            return self.found == wanted

        try:
            wait_for(what, is_so)
        except AssertionError as reason:
            raise AssertionError(f"{reason}: {self.found}") from None


def drag(desktop, modifiers, start, end):
    """From one letter to another with the left button, the modifiers held."""
    down = [part for key in modifiers for part in ("keydown", key)]
    up = [part for key in modifiers for part in ("keyup", key)]
    middle = [(a + b) // 2 for a, b in zip(start, end)]
    move = lambda to: ["mousemove", str(to[0]), str(to[1])]
    steps = [*move(start), *down, "mousedown", "1", *move(middle), *move(end), "mouseup", "1", *up]
    desktop.tell("xdotool", *steps)
    desktop.settle()


def click(desktop, at):
    desktop.tell("xdotool", "mousemove", str(at[0]), str(at[1]), "click", "1")
    desktop.settle()


def check_rectangle(desktop, text):
    plain = CODE.splitlines()[1:4]
    drag(desktop, ["Shift_L", "Alt_L"], place(2, 1), place(4, 4))
    desktop.type("xy")
    text.becomes("a rectangle to be typed into", "axy   = 1", "axy   = 2", "axyee = 3")
    desktop.key("ctrl+z", "ctrl+z")
    text.becomes("an undo of each letter", *plain)
    # From right to left and upwards, over text that is selected: it is not dragged away.
    drag(desktop, [], place(2, 0), place(4, 6))
    drag(desktop, ["Shift_L", "Alt_L"], place(4, 6), place(2, 1))
    desktop.key("Delete")
    text.becomes("a rectangle to be deleted", "a = 1", "a = 2", "a = 3")
    desktop.key("ctrl+z")
    # One caret is left by Esc, and by a click.
    drag(desktop, ["Shift_L", "Alt_L"], place(2, 0), place(4, 0))
    desktop.key("Escape")
    desktop.type("b")
    text.becomes("Esc to leave one caret", plain[0], plain[1], "b" + plain[2])
    desktop.key("ctrl+z")
    drag(desktop, ["Shift_L", "Alt_L"], place(2, 0), place(4, 0))
    click(desktop, place(3, 1))
    desktop.type("c")
    text.becomes("a click to leave one caret", plain[0], "ac" + plain[1][1:], plain[2])
    desktop.key("ctrl+z")
    text.becomes("the text as it was", *plain)


def check_keys(desktop, text):
    one, two, three = CODE.splitlines()[1:4]
    click(desktop, place(3, 2))
    desktop.key("ctrl+slash")
    text.becomes("Ctrl+/ to comment", one, ";" + two, three)
    desktop.key("ctrl+slash")
    text.becomes("Ctrl+/ to uncomment", one, two, three)
    desktop.key("ctrl+shift+a")
    text.becomes("Ctrl+Shift+A to move up", two, one, three)
    desktop.key("ctrl+shift+b", "ctrl+shift+b")
    text.becomes("Ctrl+Shift+B to move down", one, three, two)
    desktop.key("ctrl+shift+a")
    desktop.key("ctrl+shift+n", "ctrl+shift+n")
    desktop.type("q")
    text.becomes("the next occurrence", one, "q   = 2", three, "", "aone   = q")
    desktop.key("ctrl+z")
    text.becomes("one undo for both", one, two, three)


def check_menu(desktop, text):
    """By its access keys: Studio, Text, Upper Case."""
    one, two, three = CODE.splitlines()[1:4]
    click(desktop, place(3, 2))
    desktop.key("F10")  # the menu bar, as Alt and a key is the editor's
    desktop.settle()
    desktop.key("s", "t", "p")
    text.becomes("the menu to be used", one, two.upper(), three)
    desktop.key("ctrl+z")
    text.becomes("the text as it was", one, two, three)


def main():
    with Desktop(PROGRAM_FOLDER) as desktop:
        path = os.path.join(desktop.folder, "piece.csd")
        with open(path, "w") as file:
            file.write(CODE)
        desktop.start_program(path)
        desktop.window(TITLE)
        text = Text(desktop, path)
        check_rectangle(desktop, text)
        check_keys(desktop, text)
        check_menu(desktop, text)


main()
