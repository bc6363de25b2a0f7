#!/usr/bin/env python3
"""Where the editor windows stand under a window manager: the halves of the work area by the edges
of the frame, the size after the maximised state, minimised and back with a search window open, and
the name in the title.

  window_places.py PROGRAM-FOLDER"""

import os
import re
import sys

from desktop import VERSION, Desktop, wait_for

(PROGRAM_FOLDER,) = sys.argv[1:]
TITLE = f"ArdiphonPro - Version {VERSION}"
SCREEN = (1280, 1024)
MARGINS = {"left": 40, "top": 10, "right": 20, "bottom": 30}  # as panels would take them
TICKS = 13  # of a timer, in which a window that is placed in steps takes six of them
MENU_KEYS = {"upper": "u", "lower": "d", "left": "e", "right": "i"}


def reserve_margins(desktop):
    """Has the window manager keep the edges of the screen free."""
    with open("/etc/xdg/openbox/rc.xml", encoding="utf-8") as file:
        settings = file.read()
    for side, pixels in MARGINS.items():
        settings = re.sub(rf"<{side}>\d+</{side}>", f"<{side}>{pixels}</{side}>", settings)
    folder = os.path.join(desktop.environment["XDG_CONFIG_HOME"], "openbox")
    os.makedirs(folder)
    with open(os.path.join(folder, "rc.xml"), "w", encoding="utf-8") as file:
        file.write(settings)


def half(which):
    """Left, top, width and height of that half of the work area."""
    left, top = MARGINS["left"], MARGINS["top"]
    width = SCREEN[0] - left - MARGINS["right"]
    height = SCREEN[1] - top - MARGINS["bottom"]
    return {
        "whole": (left, top, width, height),
        "upper": (left, top, width, height // 2),
        "lower": (left, top + height // 2, width, height - height // 2),
        "left": (left, top, width // 2, height),
        "right": (left + width // 2, top, width - width // 2, height),
    }[which]


def frame(desktop, window):
    """Left, top, width and height of a window with its frame."""
    return desktop.display.framed_place(int(window))


def is_maximised(desktop, window):
    maximised = desktop.display.atom("_NET_WM_STATE_MAXIMIZED_VERT").value
    return maximised in (desktop.display.property(int(window), "_NET_WM_STATE") or [])


def toggle_maximised(desktop, window):
    """Double-clicks the window's caption."""
    before = is_maximised(desktop, window)
    left, top, _, _ = frame(desktop, window)
    desktop.tell("xdotool", "mousemove", str(left + 150), str(top + 9))
    desktop.tell("xdotool", "click", "--repeat", "2", "--delay", "60", "1")
    wait_for("the other state", lambda: is_maximised(desktop, window) != before)


def at_rest(desktop, window):
    """Where the window is when it moves no more."""
    return wait_for(
        "the window to stand still",
        lambda: (place := frame(desktop, window)) and stays_at(desktop, window, place) and place,
    )


def stays_at(desktop, window, place):
    """Whether the window is there and is still there when its program has done all its steps."""
    if frame(desktop, window) != place:
        return False
    desktop.settle(int(window), TICKS)
    return frame(desktop, window) == place


def click(desktop, window, x, y):
    desktop.tell("xdotool", "mousemove", "--window", window, str(x), str(y), "click", "1")


def move_to_half(desktop, window, which):
    """By the menu. The editors keep the keys with Alt, so the focus goes to the help's line first."""
    click(desktop, window, 100, 60)
    desktop.key("alt+w", MENU_KEYS[which])
    wait_for(
        f"the {which} half {half(which)}, not {frame(desktop, window)}",
        lambda: stays_at(desktop, window, half(which)),
    )
    assert not is_maximised(desktop, window)


def open_maximised(desktop, name):
    path = os.path.join(desktop.folder, name)
    with open(path, "w", encoding="utf-8") as file:
        file.write("instr 1\n")
    program = desktop.start_program(path)
    desktop.window(TITLE)
    window = desktop.tell("xdotool", "getactivewindow")
    wait_for("the whole work area", lambda: frame(desktop, window) == half("whole"))
    assert is_maximised(desktop, window)
    return program, window


def stop(desktop, program):
    desktop.key_until(["alt+F4"], "the program's end", lambda: program.poll() is not None)


def check_halves(desktop, name):
    program, window = open_maximised(desktop, name)
    for which in MENU_KEYS:
        move_to_half(desktop, window, which)
        toggle_maximised(desktop, window)
    for which in reversed(MENU_KEYS):  # and from one half to the other
        move_to_half(desktop, window, which)
    stop(desktop, program)


def check_normal_size(desktop, name):
    program, window = open_maximised(desktop, name)
    toggle_maximised(desktop, window)
    place = at_rest(desktop, window)
    whole = half("whole")
    assert place[0] >= whole[0] and place[1] >= whole[1], place
    assert place[0] + place[2] <= whole[0] + whole[2], place
    assert place[1] + place[3] <= whole[1] + whole[3], place
    for size, room in ((place[2], whole[2]), (place[3], whole[3])):
        assert 0.75 * room < size < 0.9 * room, place
    stop(desktop, program)


def windows_titled(desktop, title):
    """The windows that are seen."""
    return desktop.display.visible(title)


def colors(desktop, window):
    """How many colours a part of the text's first line shows."""
    left, top, _, _ = desktop.display.place(int(window))
    rows = desktop.display.rows(left + 190, top + 110, 200, 20)
    return len({row[at : at + 3] for row in rows for at in range(0, len(row), 3)})


def check_minimised(desktop):
    """A window that comes back is as it was, with the search window that was open."""
    program, window = open_maximised(desktop, "piece.csd")
    desktop.key("ctrl+f")
    wait_for("the search window", lambda: windows_titled(desktop, "^Find"))
    desktop.tell("xdotool", "windowminimize", window)
    wait_for("no window", lambda: not windows_titled(desktop, TITLE))
    desktop.tell("xdotool", "windowmap", window)
    wait_for("the window", lambda: windows_titled(desktop, TITLE))
    wait_for("the search window again", lambda: windows_titled(desktop, "^Find"))
    assert is_maximised(desktop, window)
    assert at_rest(desktop, window) == half("whole"), frame(desktop, window)
    desktop.tell("xdotool", "windowactivate", "--sync", window)
    click(desktop, window, 600, 300)
    desktop.key("ctrl+Home")
    desktop.type(";")
    wait_for("the star of a modified text", lambda: desktop.has_focus(TITLE + "*"))
    wait_for("the text on the screen", lambda: colors(desktop, window) > 1)
    desktop.key("ctrl+s")
    wait_for("the saved text", lambda: not desktop.has_focus(TITLE + "*"))
    with open(os.path.join(desktop.folder, "piece.csd"), encoding="utf-8") as file:
        assert file.read() == ";instr 1\n"
    stop(desktop, program)


def check_title(desktop):
    """What a toolkit may take for a mark of its own stands in the name."""
    path = os.path.join(desktop.folder, "q[*].csd")
    program, window = open_maximised(desktop, "q[*].csd")
    assert desktop.display.name(int(window)) == f"{path} - {TITLE}"
    click(desktop, window, 600, 300)
    desktop.type("x")
    wait_for(
        "the star",
        lambda: desktop.display.name(int(window)) == f"{path} - {TITLE}*",
    )
    desktop.key("ctrl+s")
    wait_for(
        "the title without the star",
        lambda: desktop.display.name(int(window)) == f"{path} - {TITLE}",
    )
    stop(desktop, program)


desktop = Desktop(PROGRAM_FOLDER)
reserve_margins(desktop)
with desktop:
    check_halves(desktop, "halves.csd")
    check_halves(desktop, "halves.orc")
    check_normal_size(desktop, "normal.csd")
    check_normal_size(desktop, "normal.orc")
    check_minimised(desktop)
    check_title(desktop)
