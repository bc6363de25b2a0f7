#!/usr/bin/env python3
"""Folding, the outline and going to names with a real mouse and real keys: the marks in the gutter,
the numbers beside what is left, and the caret after each way to a line.

  folds.py PROGRAM-FOLDER TOOLS-FOLDER"""

import os
import subprocess
import sys
from contextlib import contextmanager

from desktop import VERSION, Desktop, wait_for

PROGRAM_FOLDER, TOOLS_FOLDER = sys.argv[1:]
TITLE = f"ArdiphonPro - Version {VERSION}"

# Places on the screen, with the window maximised.
FIRST_LINE = 122  # the middle of it
LINE_HEIGHT = 16
LOOKED_AT = 12  # of that height: the line under a fold is not
MARK = 150  # in the gutter, left of the numbers
NUMBER = 188
NUMBERS = (160, 33)  # left and width
COMMENTS = (505, 45)  # the same for what stands behind the code of each line
TEXT = 400
UP, DOWN = 4, 5  # the buttons that the wheel is
BUTTON_SPLIT = (416, 52)
LOWER_VIEW = 577  # the first row of the lower view of a split
FIRST_BOOKMARK = (60, 437)
OUTLINE_ROW = (1150, 91, 14)  # of the first row: a place in it, and the height of each
NO_PLACE = (1000, 100)  # nothing is there that changes under the pointer

CODE = """<CsoundSynthesizer>
<CsInstruments>
instr 1, Bell
  kamp = p4
  out oscili(kamp, 440)
endin
instr 2
  ;;; the bass
  out oscili(p4, 110)
endin
</CsInstruments>
<CsScore>
i 1 0 1 1000
i 2 0 1 1000
i "Bell" 1 1 500
s
i 2 0 1 500
</CsScore>
</CsoundSynthesizer>
""".splitlines()
BELL, BASS, SCORE, ITS_NOTE = 3, 7, 12, 14  # their lines


def code_with_numbers(code):
    """Each line gets a comment by which it is known again."""
    return "".join(
        f"{line:40}; {number * 7919 % 1000:03} {number}\n" for number, line in enumerate(code, 1)
    )


PIECE = code_with_numbers(CODE)
LINES = len(CODE)
ALL = list(range(1, LINES + 1))
BELL_FOLDED = ALL[:BELL] + ALL[6:]
BASS_FOLDED = ALL[:BASS] + ALL[10:]
ALL_FOLDED = [*ALL[:BELL], BASS, 11, 12, 13, 17, 18, 19]

# More instruments of ten lines than there are rows in a view.
LONG_PIECE = code_with_numbers(
    ["<CsInstruments>"]
    + [
        line
        for number in range(1, 121)
        for line in [f"instr {number}", *[f"  k{i} = p{i + 4}" for i in range(8)], "endin"]
    ]
)


def write(desktop, name, text):
    path = os.path.join(desktop.folder, name)
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)
    return path


@contextmanager
def opened(desktop, name, text):
    """The program with a document of that text, whose caret stands at the top; and what its first
    lines look like in their gutter and behind their code."""
    program = desktop.start_program(write(desktop, name, text))
    try:
        desktop.window(TITLE)
        wait_for("the document", lambda: desktop.copied_text() == text.rstrip("\n"))
        desktop.key("ctrl+Home")
        point_away(desktop)
        yield Looks(desktop, min(55, text.count("\n")))
        assert program.poll() is None, program.returncode
    finally:
        program.kill()
        program.wait()


def strips(desktop, place, rows, first_row=FIRST_LINE):
    """The pixels of so many rows at a place, which is a left edge and a width."""
    left, width = place
    top = first_row - LOOKED_AT // 2
    pixels = desktop.display.rows(left, top, width, rows * LINE_HEIGHT)
    return [
        b"".join(pixels[at : at + LOOKED_AT]) for at in range(0, rows * LINE_HEIGHT, LINE_HEIGHT)
    ]


class Looks:
    """Knows lines again by their numbers in the gutter and by their comments."""

    def __init__(self, desktop, lines):
        self.desktop = desktop
        self.lines = lines
        wait_for("the colours", lambda: len(set(strips(desktop, COMMENTS, lines))) == lines)
        desktop.settle()
        self.number_of = self.known(NUMBERS)
        self.line_of = self.known(COMMENTS)

    def known(self, place):
        looks = strips(self.desktop, place, self.lines)
        assert len(set(looks)) == self.lines, "two lines look alike"
        return {look: number for number, look in enumerate(looks, 1)}

    def rows(self, count, first_row=FIRST_LINE):
        """The lines in the rows of a view, each as its number and its text tell; None for what does
        not tell one."""
        numbers = strips(self.desktop, NUMBERS, count, first_row)
        comments = strips(self.desktop, COMMENTS, count, first_row)
        seen = [
            (self.number_of.get(number), self.line_of.get(comment))
            for number, comment in zip(numbers, comments)
        ]
        return [number if number == line else None for number, line in seen]

    def become(self, lines, what, first_row=FIRST_LINE):
        wait_for(what, lambda: self.rows(len(lines), first_row) == lines)


def click(desktop, x, y, button=1):
    desktop.tell("xdotool", "mousemove", str(x), str(y), "click", str(button))
    point_away(desktop)


def point_away(desktop):
    """The gutter draws its marks more clearly under the pointer."""
    desktop.tell("xdotool", "mousemove", *map(str, NO_PLACE))
    desktop.settle()


def row(number, first_row=FIRST_LINE):
    return first_row + (number - 1) * LINE_HEIGHT


def selection(desktop, name):
    return desktop.tell("xclip", "-selection", name, "-o")


def caret_line(desktop):
    """The line of the caret, by the number at its end; the caret is at its beginning then."""
    desktop.key("Home", "shift+End", "ctrl+c", "Home")
    desktop.settle()
    return int((selection(desktop, "clipboard").split() or ["0"])[-1])


def caret_at(desktop, line):
    desktop.window(TITLE)
    wait_for(f"the caret in line {line}", lambda: caret_line(desktop) == line)


def menu(desktop, *keys):
    """An entry of the menu Studio."""
    desktop.key("alt", "s", *keys)
    desktop.settle()


def fold_bell(desktop, looks):
    click(desktop, MARK, row(BELL))
    looks.become(BELL_FOLDED, "the folded instrument")


# Folding. ------------------------------------------------------------------------------------------


def marks(desktop, looks):
    fold_bell(desktop, looks)
    click(desktop, MARK, row(4))  # the mark of the other instrument has moved up
    looks.become([1, 2, BELL, BASS, *ALL[10:]], "both folded")
    click(desktop, MARK, row(BELL))
    looks.become(BASS_FOLDED, "the first one open again")
    click(desktop, MARK, row(BASS))
    looks.become(ALL, "all lines")
    click(desktop, NUMBER, row(BELL))  # a number selects its line
    text = PIECE.splitlines()[BELL - 1]
    wait_for("the selected line", lambda: selection(desktop, "primary").rstrip("\n") == text)
    click(desktop, MARK, row(5))  # no mark is there
    click(desktop, TEXT, row(1))
    looks.become(ALL, "all lines, as nothing begins there")
    click(desktop, MARK, row(SCORE))
    looks.become([*ALL[:SCORE], 19], "the folded score")
    click(desktop, MARK, row(SCORE))
    looks.become(ALL, "all lines")


def keys(desktop, looks):
    desktop.key("ctrl+Home", *["Down"] * 8, "ctrl+shift+k")
    looks.become(BASS_FOLDED, "the instrument of the caret folded")
    caret_at(desktop, BASS)
    desktop.key("Down")
    caret_at(desktop, 11)
    desktop.key("Up", "ctrl+shift+k")
    looks.become(ALL, "the instrument open again")
    menu(desktop, "a")
    looks.become(ALL_FOLDED, "all folded")
    desktop.key("ctrl+Home", *["Down"] * 3)
    caret_at(desktop, BASS)
    menu(desktop, "u")
    looks.become(ALL, "all open")
    caret_at(desktop, BASS)
    menu(desktop, "f")
    looks.become(BASS_FOLDED, "the instrument of the caret folded by the menu")
    menu(desktop, "f")
    looks.become(ALL, "all open")


def typing(desktop, looks):
    """A letter in the header leaves what is hidden; a line end behind it shows it."""
    fold_bell(desktop, looks)
    desktop.key("ctrl+Home", *["Down"] * 2, *["Right"] * 7)
    desktop.type("2")
    desktop.settle()
    looks.become(BELL_FOLDED[:2] + [None] + BELL_FOLDED[3:], "the fold below what was typed")
    desktop.key("BackSpace")
    looks.become(BELL_FOLDED, "the fold as before")
    desktop.key("End", "Return")
    looks.become(ALL[:BELL] + [None, *[None] * 3], "the open fold")
    desktop.key("ctrl+z")
    looks.become(ALL, "all lines")


# Ways into a fold. ---------------------------------------------------------------------------------


def in_window(desktop, key, title, text):
    desktop.key_until([key], title, lambda: desktop.has_focus(title))
    desktop.key("ctrl+a")
    desktop.type(text)
    desktop.key("Return")


def search_window(desktop, looks, key, title, text, line):
    fold_bell(desktop, looks)
    desktop.key("ctrl+Home")
    in_window(desktop, key, title, text)
    desktop.settle()
    desktop.key_until(["Escape"], "the editor", lambda: desktop.has_focus(TITLE))
    caret_at(desktop, line)
    desktop.key("ctrl+Home")
    looks.become(ALL, f"the fold opened by {title}")


def bookmark(desktop, looks):
    desktop.key("ctrl+Home", *["Down"] * 4, "ctrl+b", "ctrl+Home")
    click(desktop, MARK, row(BELL))
    looks.become(BELL_FOLDED, "the folded instrument")
    click(desktop, *FIRST_BOOKMARK)
    caret_at(desktop, 5)
    desktop.key("ctrl+b", "ctrl+Home")
    looks.become(ALL, "the fold opened by the bookmark")


def names(desktop, looks):
    fold_bell(desktop, looks)
    desktop.key("ctrl+Home")
    in_window(desktop, "ctrl+shift+o", "Go to Name", "ka")
    caret_at(desktop, 4)
    looks.become(ALL, "the fold opened by the name")
    in_window(desktop, "ctrl+shift+o", "Go to Name", "bell")
    caret_at(desktop, BELL)


def notes(desktop, looks):
    """To the note of an instrument and back, with both folded."""
    menu(desktop, "a")
    looks.become(ALL_FOLDED, "all folded")
    desktop.key("ctrl+Home", *["Down"] * 3)
    caret_at(desktop, BASS)
    desktop.key("ctrl+shift+i")
    caret_at(desktop, ITS_NOTE)
    looks.become([*ALL[:BELL], BASS, *ALL[10:]], "the section of the note open")
    desktop.key("ctrl+shift+i")
    caret_at(desktop, BASS)
    menu(desktop, "u")
    looks.become(ALL, "all open")


# The outline. --------------------------------------------------------------------------------------


def outline_row(number):
    x, y, height = OUTLINE_ROW
    return x, y + (number - 1) * height


def marked_rows(desktop, count=7):
    """Which of the outline's rows are drawn as the current one: at their right edge nothing is but
    their back."""
    backs = []
    for number in range(1, count + 1):
        y = outline_row(number)[1]
        backs.append(desktop.display.rows(1240, y, 1, 1)[0])
    return [number for number, back in enumerate(backs, 1) if back != b"\xff\xff\xff"]


def outline(desktop, looks):
    """Orchestra, instr 1, instr 2, the bass, Score, the end of a section."""
    desktop.key("ctrl+Home", "ctrl+shift+l")
    desktop.settle()
    desktop.type("insr2")
    wait_for("the row that is left", lambda: marked_rows(desktop) == [2])
    desktop.key("Return")
    caret_at(desktop, BASS)
    desktop.key("ctrl+Home", *["Down"] * 3)
    desktop.key("ctrl+shift+l", "ctrl+shift+l", "Escape")
    wait_for("the entry at the caret", lambda: marked_rows(desktop) == [2])
    desktop.key("Escape")  # to the text
    caret_at(desktop, 4)
    for line, entry in [(BASS, 3), (9, 4), (SCORE, 5), (4, 2), (2, 1)]:
        desktop.key("ctrl+Home", *["Down"] * (line - 1))
        wait_for(f"entry {entry} at line {line}", lambda: marked_rows(desktop) == [entry])
    fold_bell(desktop, looks)
    click(desktop, *outline_row(4))
    caret_at(desktop, 8)
    click(desktop, *outline_row(2))
    caret_at(desktop, BELL)
    looks.become(BELL_FOLDED, "the heading over its fold")
    click(desktop, MARK, row(BELL))
    looks.become(ALL, "all open")
    menu(desktop, "o")  # hides it again
    wait_for("no outline", lambda: not marked_rows(desktop))
    caret_at(desktop, BELL)


# Two views, and the wheel. -------------------------------------------------------------------------


def split(desktop, looks):
    click(desktop, *BUTTON_SPLIT)
    looks.become(ALL, "the second view", LOWER_VIEW)
    click(desktop, MARK, row(BASS, LOWER_VIEW))
    looks.become(BASS_FOLDED, "the fold below", LOWER_VIEW)
    assert looks.rows(LINES) == ALL
    desktop.key("F11", "ctrl+Home", "Down", "Down", "ctrl+shift+k")
    looks.become(BELL_FOLDED, "the other fold above")
    assert looks.rows(len(BASS_FOLDED), LOWER_VIEW) == BASS_FOLDED
    desktop.key("F12", "ctrl+Home")
    menu(desktop, "u")
    looks.become(ALL, "all open below", LOWER_VIEW)
    assert looks.rows(len(BELL_FOLDED)) == BELL_FOLDED
    click(desktop, *BUTTON_SPLIT)
    looks.become(BELL_FOLDED, "one view, as it was")
    menu(desktop, "u")
    looks.become(ALL, "all open")


def wheel(desktop):
    """A notch is three rows, whatever is hidden between."""
    with opened(desktop, "long.csd", LONG_PIECE) as looks:
        menu(desktop, "a")
        looks.become([1, 2, 12, 22, 32, 42, 52], "all folded")
        for x in (TEXT, NUMBER):
            click(desktop, x, row(20), DOWN)
            looks.become([22, 32, 42, 52], "three rows further")
            click(desktop, x, row(20), UP)
            looks.become([1, 2, 12, 22, 32, 42, 52], "the first rows")
        click(desktop, MARK, row(2))
        looks.become([*range(1, 13), 22, 32], "the first instrument open")
        click(desktop, TEXT, row(20), DOWN)
        looks.become([*range(4, 13), 22, 32], "three lines further")


with Desktop(PROGRAM_FOLDER) as desktop:
    subprocess.run(
        [os.path.join(TOOLS_FOLDER, "first_settings")], env=desktop.environment, check=True
    )
    with opened(desktop, "piece.csd", PIECE) as looks:
        looks.become(ALL, "all lines")
        for step in [marks, keys, typing]:
            step(desktop, looks)
        search_window(desktop, looks, "ctrl+f", "Find", "440", 5)
        search_window(desktop, looks, "ctrl+g", "Find Line number", "5", 5)
        for step in [bookmark, names, notes, outline, split]:
            step(desktop, looks)
    wheel(desktop)
