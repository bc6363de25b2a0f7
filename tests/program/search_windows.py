#!/usr/bin/env python3
"""The search windows where they really stand: each opens in the middle of its editor window, stays
there as long as it covers nothing that was found, and moves out of the way of what it covers.

  search_windows.py PROGRAM-FOLDER"""

import os
import sys

from desktop import VERSION, Desktop, wait_for

PROGRAM_FOLDER = sys.argv[1]
TITLE = f"ArdiphonPro - Version {VERSION}"
WIDTH, HEIGHT = 1280, 1024  # of the screen
LINES = 120
LINE_HEIGHT = 16
SELECTED = bytes((255, 0, 255))  # the colour of a selection, as the settings say
COLUMNS = (560, 400)  # left and width of the part of the screen in which words are seen
SHORTEST = 40  # pixels of a row that a found word has at least in that colour
SETTINGS = """[Software]
Ardiphon\\Colors\\ColorSelectionBack=16711935
"""


def write(desktop, name, text):
    path = os.path.join(desktop.folder, name)
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)
    return path


def word(line):
    return f"word{line:03}"


def document():
    dots = "." * 45
    return "".join(f"{line:03} {dots} {word(line)} {dots} end\n" for line in range(1, LINES + 1))


def frame(desktop, title):
    """Left, top, right and bottom of a window with its frame, as the display has them; None when
    there is no such window in sight."""
    found = desktop.display.visible(title)
    place = desktop.display.framed_place(found[0]) if found else None
    return place and (place[0], place[1], place[0] + place[2], place[1] + place[3])


def at_rest(desktop, title):
    """Where a window stands when it moves no more."""

    def still():
        before = frame(desktop, title)
        if before:
            desktop.settle(desktop.display.visible(title)[0])
        return before if frame(desktop, title) == before else None

    return wait_for(f"{title!r} to stand still", still)


def covers(window, spot):
    return (
        window[0] < spot[2] and spot[0] < window[2] and window[1] < spot[3] and spot[1] < window[3]
    )


def seen_selection(desktop):
    """What is seen of the selection, as left, top, right and bottom on the screen, or None."""
    left, width = COLUMNS
    rows = []
    for y, row in enumerate(desktop.display.rows(left, 100, width, HEIGHT - 100), 100):
        x = row.find(SELECTED * SHORTEST)
        if x >= 0 and x % 3 == 0:
            rows.append((left + x // 3, y))
    return (rows[0][0], rows[0][1], rows[0][0] + SHORTEST, rows[-1][1] + 1) if rows else None


def find(desktop, line, caption, before=None):
    """Finds the word of a line in the search window in front. Gives where it is seen, and where the
    window stands. before: where the selection was seen until now."""
    desktop.key("ctrl+a")
    desktop.type(word(line))
    desktop.key("Return")

    def seen_anew():
        spot = seen_selection(desktop)
        return spot if spot != before else None

    wait_for(f"{word(line)} to be seen", seen_anew)
    window = at_rest(desktop, caption)
    spot = seen_selection(desktop)
    assert spot and not covers(window, spot), (line, spot, window)
    return spot, window


def inside(window):
    left, top, right, bottom = window
    return left >= 0 and top >= 0 and right <= WIDTH and bottom <= HEIGHT


def focus_editor(desktop):
    """Clicks into the first line of the document."""
    left, top = frame(desktop, TITLE)[:2]
    desktop.tell("xdotool", "mousemove", str(left + 260), str(top + 122), "click", "1")
    desktop.window(TITLE)
    desktop.key("ctrl+Home")


def open_search(desktop, key, caption):
    focus_editor(desktop)
    desktop.key_until([key], caption, lambda: desktop.has_focus(caption))
    return at_rest(desktop, f"^{caption}$")


def close(desktop, caption):
    found = desktop.display.visible(caption)[0]
    desktop.tell("xdotool", "windowactivate", "--sync", str(found))
    desktop.key_until(["Escape"], "the window's end", lambda: frame(desktop, caption) is None)


def center(window):
    return (window[0] + window[2]) // 2, (window[1] + window[3]) // 2


def is_in_the_middle(window, owner):
    (x, y), (middle_x, middle_y) = center(window), center(owner)
    return abs(x - middle_x) <= 40 and abs(y - middle_y) <= 40


def move(desktop, caption, x, y):
    found = desktop.display.visible(caption)[0]
    desktop.tell("xdotool", "windowmove", str(found), str(x), str(y))
    return at_rest(desktop, caption)


def line_under(window, line, spot):
    """The line whose word is in the middle of a window, as seen from that of another line."""
    return line + (center(window)[1] - spot[1]) // LINE_HEIGHT


def find_under(desktop, caption, key):
    """A search window opens in the middle, stays for a match elsewhere, and moves for one under it;
    over and over, wherever it stands."""
    opened = open_search(desktop, key, caption.strip("^$"))
    assert is_in_the_middle(opened, frame(desktop, TITLE)), opened
    spot, window = find(desktop, 3, caption)
    assert window == opened, (window, opened)
    line = 3
    for _ in range(3):
        line = line_under(window, line, spot)
        spot, moved = find(desktop, line, caption, spot)
        assert covers(window, spot) and moved != window, (line, spot, window, moved)
        assert inside(moved), moved
        window = moved
    focus_editor(desktop)  # and nothing is selected


def in_the_whole_screen(desktop):
    for caption, key in [("^Find$", "ctrl+f"), ("^Find and Replace$", "ctrl+h")]:
        find_under(desktop, caption, key)
        close(desktop, caption)


def at_the_edges(desktop):
    """Near the edges of the screen it moves to where there is room."""
    open_search(desktop, "ctrl+f", "Find")
    spot, window = find(desktop, 3, "^Find$")
    first = spot[1] - 2 * LINE_HEIGHT
    width, height = window[2] - window[0], window[3] - window[1]
    for line in [1, 50, 53]:
        top = first + (line - 1) * LINE_HEIGHT - height // 2
        move(desktop, "^Find$", spot[0] - width // 2, min(max(0, top), HEIGHT - height))
        before = at_rest(desktop, "^Find$")
        spot, moved = find(desktop, line, "^Find$", spot)
        assert covers(before, spot) and inside(moved), (line, spot, before, moved)
    find(desktop, LINES, "^Find$", spot)  # scrolled into sight
    close(desktop, "^Find$")


def for_a_line(desktop):
    """A selected line counts as a match, and its window is gone."""
    opened = open_search(desktop, "ctrl+f", "Find")
    spot, _ = find(desktop, 3, "^Find$")
    line = line_under(opened, 3, spot)
    open_search(desktop, "ctrl+g", "Find Line number")
    desktop.type(str(line))
    desktop.key("Return")
    wait_for("its end", lambda: frame(desktop, "^Find Line number$") is None)
    moved = at_rest(desktop, "^Find$")
    spot = seen_selection(desktop)
    assert opened[1] < spot[1] < opened[3], (spot, opened)
    assert inside(moved) and not moved[1] < spot[1] < moved[3], (spot, moved)
    close(desktop, "^Find$")


def for_each_other(desktop):
    """A search window makes room for what another one finds."""
    waiting = open_search(desktop, "ctrl+g", "Find Line number")
    open_search(desktop, "ctrl+f", "Find")
    move(desktop, "^Find$", 0, 700)
    spot, _ = find(desktop, 3, "^Find$")
    line = line_under(waiting, 3, spot)
    spot, _ = find(desktop, line, "^Find$", spot)
    assert covers(waiting, spot), (waiting, spot)
    assert not covers(at_rest(desktop, "^Find Line number$"), spot)
    close(desktop, "^Find$")
    close(desktop, "^Find Line number$")


def in_a_small_window(desktop):
    """The same where the editor window is not maximised, and after it was moved."""
    desktop.tell("xdotool", "mousemove", "640", "8", "click", "--repeat", "2", "1")
    window = desktop.display.visible(TITLE)[0]
    wait_for("a smaller window", lambda: max(frame(desktop, TITLE)[:2]) > 0)
    for x, y in [(150, 120), (310, 90)]:
        desktop.tell("xdotool", "windowsize", str(window), "900", "600")
        desktop.tell("xdotool", "windowmove", str(window), str(x), str(y))
        at_rest(desktop, TITLE)
        find_under(desktop, "^Find$", "ctrl+f")
        close(desktop, "^Find$")


with Desktop(PROGRAM_FOLDER) as desktop:
    write(desktop, "config/Ardiphon/settings.ini", SETTINGS)
    program = desktop.start_program(write(desktop, "piece.csd", document()))
    desktop.window(TITLE)
    wait_for("the document", lambda: word(LINES) in desktop.copied_text())
    focus_editor(desktop)
    wait_for("no selection", lambda: seen_selection(desktop) is None)

    in_the_whole_screen(desktop)
    at_the_edges(desktop)
    for_a_line(desktop)
    for_each_other(desktop)
    in_a_small_window(desktop)
    assert program.poll() is None, program.returncode
