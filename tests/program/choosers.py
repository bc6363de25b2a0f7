#!/usr/bin/env python3
"""The choosers under a window manager: what the real pointer lights, where About opens, and the keys
of other layouts than the one of the United States.

  choosers.py PROGRAM-FOLDER"""

import os
import subprocess
import sys

from desktop import VERSION, Desktop, wait_for

(PROGRAM_FOLDER,) = sys.argv[1:]
STARTUP = "ArdiphonPro Startup"
EDITOR = f"ArdiphonPro - Version {VERSION}"
LOOKS = 5  # of the timer of a chooser for the pointer

# The keys of the keyboard by their places, whatever they type.
PLACE = {"1": "10", "2": "11", "3": "12", "4": "13", "C": "54", "O": "32", "B": "56", "I": "31"}


def write_settings(desktop, recent):
    folder = os.path.join(desktop.environment["XDG_CONFIG_HOME"], "Ardiphon")
    os.makedirs(folder, exist_ok=True)
    with open(os.path.join(folder, "settings.ini"), "w") as file:
        file.write("[Software]\nArdiphon\\InstallPath\\First=0\n")
        for i, path in enumerate(recent, 1):
            file.write(f"Ardiphon\\RecentFiles\\File{i}={path}\n")


def place_of(desktop, title):
    """The left, top, width and height of the window that has the focus and that title."""
    desktop.window(title)
    told = desktop.tell("xdotool", "getactivewindow", "getwindowgeometry", "--shell")
    numbers = dict(line.split("=") for line in told.splitlines())
    return [int(numbers[name]) for name in ("X", "Y", "WIDTH", "HEIGHT")]


def look(desktop, x, y):
    """The pixels of a piece of the screen."""
    return desktop.display.rows(x, y, 60, 20)


def point(desktop, x, y):
    desktop.tell("xdotool", "mousemove", str(x), str(y))


def check_hover(desktop, chooser, spots):
    """Each spot is lit under the pointer as long as that stays, and dark when it has jumped away."""
    left, top, _, _ = chooser
    outside = (left - 60, top - 60)
    point(desktop, *outside)
    places = [(left + x, top + y) for x, y in spots]
    desktop.settle(ticks=LOOKS)
    dark = [look(desktop, *place) for place in places]
    for (x, y), before in zip(places, dark):
        for step in range(3):
            point(desktop, x + 10 + step, y + 5)
        wait_for("the light", lambda: look(desktop, x, y) != before)
        desktop.settle(ticks=LOOKS)
        assert look(desktop, x, y) != before, f"the light went out at {x - left}, {y - top}"
        for (other_x, other_y), other in zip(places, dark):
            if (other_x, other_y) != (x, y):
                assert look(desktop, other_x, other_y) == other, "another is lit as well"
        point(desktop, *outside)
        wait_for("the dark", lambda: look(desktop, x, y) == before)


def stop(program):
    program.terminate()
    program.wait()


def hover_of_the_start_window(desktop):
    for _ in range(4):  # the window's place was unknown in most starts
        program = desktop.start_program()
        chooser = place_of(desktop, STARTUP)
        check_hover(desktop, chooser, [(30, 60), (160, 60), (305, 54), (305, 166)])
        stop(program)
    # Dragged by its strip it is elsewhere, and stays there.
    program = desktop.start_program()
    left, top, _, _ = place_of(desktop, STARTUP)
    desktop.tell("xdotool", "mousemove", str(left + 150), str(top + 15), "mousedown", "1")
    for step in range(1, 11):
        point(desktop, left + 150 + 20 * step, top + 15 + 20 * step)
        desktop.hear(desktop.display.active())
    desktop.tell("xdotool", "mouseup", "1")
    moved = wait_for(
        "the drag",
        lambda: [p for p in [place_of(desktop, STARTUP)] if p[0] > left + 100 and p[1] > top + 100],
    )[0]
    check_hover(desktop, moved, [(30, 60), (305, 54)])
    assert place_of(desktop, STARTUP) == moved
    stop(program)


def about_is_centred(desktop, open_it):
    program = desktop.start_program()
    left, top, width, height = place_of(desktop, STARTUP)
    open_it(left, top, width)
    title = "About Ardiphon"
    about = place_of(desktop, title)
    assert abs((about[0] + about[2] / 2) - (left + width / 2)) < 10, (about, left, width)
    assert abs((about[1] + about[3] / 2) - (top + height / 2)) < 40, (about, top, height)
    stop(program)


def click_info(desktop):
    return lambda left, top, width: desktop.tell(
        "xdotool", "mousemove", str(left + width - 43), str(top + 16), "click", "1"
    )


def press_info(desktop):
    """By the keyboard alone, while the pointer is elsewhere from the beginning."""
    return lambda *_: desktop.key_until(
        ["Tab", "Tab", "Tab", "space"], "About", lambda: desktop.has_focus("About Ardiphon")
    )


def opens(desktop, key, title, ignored=()):
    """Only the last key does something."""
    program = desktop.start_program()
    desktop.window(STARTUP)
    if ignored:
        desktop.key(*ignored)
        desktop.settle()
        assert desktop.has_focus(STARTUP), ignored
    desktop.key_until([key], title, lambda: desktop.has_focus(title))
    stop(program)


def keys_of_layouts(desktop, files):
    def layout(*name):
        subprocess.run(["setxkbmap", *name], env=desktop.environment, check=True)

    layout("fr")
    for number, path in enumerate(files, 1):
        shifted = "shift+" + PLACE[str(number)]  # which types the number
        opens(desktop, PLACE[str(number)], path, ignored=[shifted])
    layout("ru")
    opens(desktop, PLACE["C"], "[Untitled]")
    opens(desktop, PLACE["B"], "Open Files")
    program = desktop.start_program()
    desktop.window(STARTUP)
    desktop.key_until([PLACE["O"]], EDITOR, lambda: desktop.has_focus(EDITOR))
    # New, in the project: the same keys, and the same hover.
    desktop.key_until(["ctrl+n"], "New", lambda: desktop.has_focus("New"))
    check_hover(desktop, place_of(desktop, "New"), [(30, 60), (160, 60)])
    desktop.key_until([PLACE["C"]], "a new CSD", lambda: desktop.has_focus("[Untitled"))
    stop(program)
    layout("us", "-variant", "dvorak")
    opens(desktop, PLACE["I"], "[Untitled]", ignored=[PLACE["C"]])  # c, and j before it
    layout("us")


with Desktop(PROGRAM_FOLDER) as desktop:
    files = [os.path.join(desktop.folder, f"piece{i}.csd") for i in range(1, 5)]
    for path in files:
        with open(path, "w") as file:
            file.write("<CsoundSynthesizer>\n</CsoundSynthesizer>\n")
    write_settings(desktop, files)
    about_is_centred(desktop, press_info(desktop))
    about_is_centred(desktop, click_info(desktop))
    hover_of_the_start_window(desktop)
    keys_of_layouts(desktop, files)
