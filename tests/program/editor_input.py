#!/usr/bin/env python3
"""Keys, wheel and mouse as a user has them, under a window manager: the menu bar and the popup from
the keyboard, the focus that stays with what is seen, the wheel over the other view, the colours of
what the program selects, and the middle button.

  editor_input.py PROGRAM-FOLDER TOOLS-FOLDER"""

import os
import subprocess
import sys
from contextlib import contextmanager

from desktop import VERSION, Desktop, wait_for

PROGRAM_FOLDER, TOOLS_FOLDER = sys.argv[1:]
TITLE = f"ArdiphonPro - Version {VERSION}"

# Places on the screen, with the window maximised.
FIRST_MENU = (40, 20, 4, 20)  # width, height, left, top
BUTTON_SPLIT = (416, 52)
FIRST_LINE = 124
LINE_HEIGHT = 16
GUTTER = 180
TEXT_LEFT = 196
SCROLL_BAR = 1268
UPPER_VIEW = (300, 256, TEXT_LEFT, 180)
LOWER_VIEW = (300, 256, TEXT_LEFT, 640)
FIRST_INSTRUMENT = (1151, 64)  # in the floating panel of the project's window
INSTRUMENT_NUMBER = (1205, 104)
LINES_OF_A_NOTCH = 3

ENTRIES = [
    "New Project",
    "Open Project",
    "Save Project",
    "Save Project As",
    "New Orchestra",
    "Open Orchestra",
    "Save Orchestra",
    "Save Orchestra As",
    "New Score",
    "Open Score",
    "Save Score",
    "Save Score As",
    "Import",
    "Export",
]


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
    return desktop.display.rows(left, top, width, height)


def text_is(desktop, text):
    """Waits until the control that has the focus holds that text; its caret is at the end then."""
    wait_for(f"the text {text!r}", lambda: desktop.copied_text() == text)
    desktop.key("ctrl+End")


def menu_keys(desktop, *keys):
    """Keys of which the last one closes a menu. While that is open the display gives the menu every
    key, and whatever is pressed before it has closed is lost with it."""
    desktop.key(*keys)
    desktop.settle()


def select_all_from_menu(desktop, *opener):
    """By the last entry of the menu Edit."""
    menu_keys(desktop, *opener, "Right", "Down", "Up", "Return")


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
        menu_keys(desktop, "shift+F10", "a")  # Select All, in the popup
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
        menu_keys(desktop, "shift+F10", "a")
        desktop.type("popup")
        text_is(desktop, "popup")
        desktop.key("F11")
        text_is(desktop, "orchestra")


# The focus. ----------------------------------------------------------------------------------------


def choose(desktop, entry):
    """An entry of the project's menu File."""
    menu_keys(desktop, "alt", "f", "Home", *["Down"] * ENTRIES.index(entry), "Return")


def choose_file(desktop, title, name):
    desktop.window(title)
    desktop.type(path_of(desktop, name))
    desktop.key("Return")
    desktop.window(TITLE)


class VisibleEditor:
    """The editor that alone is seen: whatever is typed lands there."""

    def __init__(self, desktop, text):
        self.desktop = desktop
        self.text = text
        self.typed = 0

    def takes_what_is_typed(self):
        letter = chr(ord("a") + self.typed)
        self.typed += 1
        self.text += letter
        self.desktop.key("ctrl+End")
        self.desktop.type(letter)
        text_is(self.desktop, self.text)

    def save(self, file):
        """Saves the project, so that nothing asks before the next step."""
        self.desktop.key("ctrl+s")

        def saved():
            with open(path_of(self.desktop, file), encoding="utf-8") as written:
                return written.read() == self.text

        wait_for("the saved text", saved)


def score_alone(desktop):
    """The orchestra is hidden, and what would give it the focus leaves it with the score."""
    orchestra = "instr 1\nendin\n"
    write(desktop, "alone.sco", "i1 0 1 ;")
    with opened(desktop, write(desktop, "alone.orc", orchestra), "instr 1"):
        desktop.key("F8")
        score = VisibleEditor(desktop, "i1 0 1 ;")
        score.takes_what_is_typed()

        desktop.key("ctrl+7")
        click(desktop, *FIRST_INSTRUMENT)
        score.takes_what_is_typed()
        click(desktop, *INSTRUMENT_NUMBER)
        desktop.type("1")
        desktop.key("Return", "End")
        desktop.type("2")  # the field keeps the focus
        text_is(desktop, "12")
        desktop.key("ctrl+7")
        click(desktop, 400, 400)

        choose(desktop, "Export")
        choose_file(desktop, "Save CSD File As", "exported.csd")
        score.takes_what_is_typed()
        choose(desktop, "Save Project As")
        choose_file(desktop, "Save Project As", "saved.orc")
        score.takes_what_is_typed()
        score.save("saved.sco")
        write(desktop, "next.orc", orchestra)
        write(desktop, "next.sco", "i1 0 2 ;")
        desktop.key("ctrl+o")
        choose_file(desktop, "Open Project", "next.orc")
        score = VisibleEditor(desktop, "i1 0 2 ;")
        text_is(desktop, score.text)  # the window has the focus before it has the text
        score.takes_what_is_typed()
        desktop.key("ctrl+n")
        desktop.window("New Project")
        desktop.key_until(["Escape"], "the editor", lambda: desktop.has_focus(TITLE))
        score.takes_what_is_typed()
        score.save("next.sco")
        desktop.key("F7")
        text_is(desktop, orchestra.rstrip("\n"))  # the clipboard's reader drops the last line end
        desktop.key("F8")

        menu_keys(desktop, "alt", "h", "1")  # a header, for the hidden orchestra
        score.takes_what_is_typed()
        score.save("next.sco")
        choose(desktop, "New Orchestra")
        score.takes_what_is_typed()


def orchestra_alone(desktop):
    write(desktop, "other.sco", "")
    with opened(desktop, write(desktop, "other.orc", "instr 1 ;"), "instr 1"):
        desktop.key("F7")
        orchestra = VisibleEditor(desktop, "instr 1 ;")
        choose(desktop, "Save Score As")
        choose_file(desktop, "Save Score As", "another.sco")
        orchestra.takes_what_is_typed()
        choose(desktop, "New Score")
        orchestra.takes_what_is_typed()
        desktop.key("F12")
        orchestra.takes_what_is_typed()
        desktop.key("F8")
        desktop.type("all of the score")
        text_is(desktop, "all of the score")


def split_switched_off(desktop):
    with opened(desktop, write(desktop, "off.csd", "text"), "text"):
        click(desktop, *BUTTON_SPLIT)
        wait_for("the second view", lambda: line_between(desktop))
        desktop.key("F12", "ctrl+End")
        click(desktop, *BUTTON_SPLIT)
        wait_for("one view", lambda: not line_between(desktop))
        desktop.type("the upper ")
        text_is(desktop, "the upper text")


def line_between(desktop):
    """Whether a line parts gutters and texts of two views."""
    rows = pixels(desktop, 500, 400, GUTTER - 30, 400)
    return [row for row in rows if row == bytes([0x80] * 1500)]


# The wheel. ----------------------------------------------------------------------------------------


def turn_wheel(desktop, x, y, view, other):
    """A notch down with the pointer there scrolls the one view and not the other."""
    seen = pixels(desktop, *view)
    others = pixels(desktop, *other)
    moved = LINES_OF_A_NOTCH * LINE_HEIGHT
    click(desktop, x, y, 5)
    wait_for("the scrolled view", lambda: pixels(desktop, *view)[:-moved] == seen[moved:])
    assert pixels(desktop, *other) == others, "the other view moved"


def wheel(desktop):
    lines = "".join(f"line {line} {line * 7919 % 1000}\n" for line in range(1, 1001))
    with opened(desktop, write(desktop, "wheel.csd", lines), "line 1000"):
        click(desktop, *BUTTON_SPLIT)
        wait_for("the second view", lambda: line_between(desktop))
        desktop.key("F12", "ctrl+End", "F11")
        desktop.settle()
        places = [(600, 700), (GUTTER, 700), (SCROLL_BAR, 700), (600, 300), (SCROLL_BAR, 300)]
        for x, y in places:
            turn_wheel(desktop, x, y, UPPER_VIEW, LOWER_VIEW)
        desktop.key("F12", "ctrl+Home")
        desktop.settle()
        for x, y in places:
            turn_wheel(desktop, x, y, LOWER_VIEW, UPPER_VIEW)
        desktop.type("lower ")
        wait_for("what was typed", lambda: desktop.copied_text().startswith("lower line 1 "))


# What is selected. ---------------------------------------------------------------------------------


def selection_shows(desktop, line):
    """Whether that line is drawn as selected; in no case is it drawn in the toolkit's grey."""
    drawn = b"".join(pixels(desktop, 200, 14, TEXT_LEFT, FIRST_LINE - 7 + (line - 1) * LINE_HEIGHT))
    points = [drawn[at : at + 3] for at in range(0, len(drawn), 3)]
    assert points.count(bytes([0xB0] * 3)) < 50, "selected text is grey"
    return points.count(bytes(3)) > 150


def find(desktop, text):
    desktop.key("ctrl+f")
    desktop.window("Find")
    desktop.key("ctrl+a")
    desktop.type(text)
    desktop.key("Return", "Escape")
    desktop.window(TITLE)


def primary(desktop):
    return desktop.tell("xclip", "-selection", "primary", "-o")


def selections(desktop):
    text = "alpha beta gamma delta\n\n\nend"
    with opened(desktop, write(desktop, "colours.csd", text), "alpha"):
        desktop.key("shift+ctrl+Right", "Home")  # the user's selection, then none
        find(desktop, "gamma")
        wait_for("the match", lambda: selection_shows(desktop, 1))
        wait_for("the match for the middle button", lambda: primary(desktop) == "gamma")

        # Another program's selection takes the middle button and nothing else.
        taken = write(desktop, "taken.txt", "another")
        other = desktop.start(["xclip", "-quiet", "-selection", "primary", taken])
        wait_for("the other selection", lambda: primary(desktop) == "another")
        desktop.key("ctrl+c")
        wait_for(
            "the copied match",
            lambda: desktop.tell("xclip", "-selection", "clipboard", "-o") == "gamma",
        )
        assert selection_shows(desktop, 1), "the match is not marked any more"
        other.kill()

        click(desktop, GUTTER, FIRST_LINE + 3 * LINE_HEIGHT)
        wait_for("the line of the gutter", lambda: selection_shows(desktop, 4))
        wait_for("the line for the middle button", lambda: primary(desktop) == "end")
        desktop.key("ctrl+Home", "shift+ctrl+Right")
        find(desktop, "delta")
        click(desktop, 600, FIRST_LINE + LINE_HEIGHT, 2)
        text_is(desktop, text.replace("\n\n\n", "\ndelta\n\n"))


with Desktop(PROGRAM_FOLDER) as desktop:
    subprocess.run(
        [os.path.join(TOOLS_FOLDER, "first_settings")], env=desktop.environment, check=True
    )
    menus_by_keys(desktop)
    menus_of_the_focused_half(desktop)
    score_alone(desktop)
    orchestra_alone(desktop)
    split_switched_off(desktop)
    wheel(desktop)
    selections(desktop)
