#!/usr/bin/env python3
"""Winsound and CSoundAV in a real terminal: it stays until a key is pressed, Ctrl+C stops what runs
in it, and nothing outlives it unseen.

  terminals.py PROGRAM-FOLDER"""

import os
import shutil
import sys
import time

from desktop import VERSION, Desktop, wait_for

(PROGRAM_FOLDER,) = sys.argv[1:]
EDITOR = f"ArdiphonPro - Version {VERSION}"
TERMINAL = "xterm"

# Leaves its process id and that of one that has left its session, says so, and plays on.
COMPILER = """#!/bin/sh
echo "plays $*"
setsid sleep 600 &
echo $! >"$0.fugitive"
echo $$ >"$0.leader"
while [ ! -e "$0.end" ]; do sleep 0.05; done
"""


class Compiler:
    def __init__(self, desktop):
        self.path = os.path.join(desktop.folder, "compiler")
        with open(self.path, "w") as file:
            file.write(COMPILER)
        os.chmod(self.path, 0o755)

    def noted(self, name):
        try:
            with open(f"{self.path}.{name}") as file:
                return int(file.read() or 0)
        except OSError:
            return 0

    def wait_for_start(self):
        wait_for("the compiler", lambda: self.noted("fugitive") and self.noted("leader"))

    def end(self):
        open(self.path + ".end", "w").close()

    def is_over(self):
        return not any(self.is_alive(name) for name in ("leader", "fugitive"))

    def is_alive(self, name):
        try:
            with open(f"/proc/{self.noted(name)}/stat") as file:
                return file.read().rpartition(") ")[2][0] != "Z"
        except OSError:
            return False

    def forget(self):
        wait_for("the end of all", self.is_over)
        for name in ("leader", "fugitive", "end"):
            if os.path.exists(f"{self.path}.{name}"):
                os.remove(f"{self.path}.{name}")


def write_settings(desktop, compiler):
    folder = os.path.join(desktop.environment["XDG_CONFIG_HOME"], "Ardiphon")
    os.makedirs(folder)
    with open(os.path.join(folder, "settings.ini"), "w") as file:
        file.write("[Software]\nArdiphon\\InstallPath\\First=0\n")
        for name in ("FileWinsound", "FileDirectCSound"):
            file.write(f"Ardiphon\\Settings\\{name}={compiler.path}\n")


def open_terminal(desktop):
    """Its window, in front."""
    window = wait_for(
        "the terminal", lambda: desktop.tell("xdotool", "search", "--class", TERMINAL).split()
    )[-1]
    desktop.tell("xdotool", "windowactivate", "--sync", window)
    return window


def no_terminal(desktop):
    return not desktop.processes_named("ArdiphonConsole") and not desktop.tell(
        "xdotool", "search", "--class", TERMINAL
    )


def close_by_a_key(desktop):
    open_terminal(desktop)
    desktop.key_until(["space"], "the terminal's end", lambda: no_terminal(desktop))


def choose(desktop, keys, title):
    """An entry of a menu. The editor keeps the keys with Alt to itself, so the focus goes to the
    opcode's line above it first."""
    desktop.tell("xdotool", "mousemove", "640", "82", "click", "1")
    desktop.key_until(keys, title, lambda: desktop.has_focus(title))


def csd_by_winsound(desktop, compiler):
    """Started and left alone. Ctrl+C stops it; keys that were typed ahead do not close the window,
    nor does the end as long as something runs that was left behind."""
    choose(desktop, ["alt+t", "i"], "Winsound Compiler")
    desktop.key("Return")
    compiler.wait_for_start()
    open_terminal(desktop)
    desktop.type("typed ahead")
    desktop.key("Return", "space")
    desktop.key("ctrl+c")
    wait_for("the compiler's end", lambda: not compiler.is_alive("leader"))
    assert compiler.is_alive("fugitive")
    desktop.key("ctrl+c")
    wait_for("the end of what it left", compiler.is_over)
    time.sleep(0.5)  # nothing tells that it reads the keyboard again, and finds no key
    assert desktop.processes_named("ArdiphonConsole"), "a key typed ahead closed the window"
    close_by_a_key(desktop)
    compiler.forget()


def csd_by_csoundav(desktop, compiler, way):
    """Plays on when the program is gone, until its window is closed."""
    choose(desktop, ["F4"], "CSoundAV")
    desktop.key("alt+p")
    compiler.wait_for_start()
    window = open_terminal(desktop)
    way(window)
    wait_for("the end of all", compiler.is_over)
    wait_for("the terminal's end", lambda: no_terminal(desktop))
    compiler.forget()


def project_by_winsound(desktop, compiler, program):
    """Waited for: the dialog lives on, and the terminal stays for what it shows."""
    title = "Winsound Compiler"

    def compile_once():
        desktop.settle()  # the dialog has heard of the end of the last run
        desktop.key("alt+c")
        compiler.wait_for_start()
        return open_terminal(desktop)

    choose(desktop, ["alt+t", "i"], title)
    compile_once()
    desktop.type("ahead")
    compiler.end()
    wait_for("the end of all", compiler.is_over)
    time.sleep(0.5)  # the same
    assert desktop.processes_named("ArdiphonConsole"), "the window closed by itself"
    close_by_a_key(desktop)
    compiler.forget()

    desktop.window(title)
    window = compile_once()
    desktop.tell("xdotool", "windowkill", window)
    wait_for("the terminal's end", lambda: no_terminal(desktop))
    compiler.forget()

    desktop.window(title)
    compile_once()  # leaving the dialog ends it, with its window
    dialog = desktop.tell("xdotool", "search", "--name", title).split()[-1]
    desktop.tell("xdotool", "windowactivate", "--sync", dialog)
    desktop.key_until(["alt+x"], "the terminal's end", lambda: no_terminal(desktop))
    compiler.forget()
    desktop.window(EDITOR)

    choose(desktop, ["alt+t", "i"], title)
    compile_once()
    program.kill()  # and so does the program's end, however it comes
    program.wait()
    wait_for("the terminal's end", lambda: no_terminal(desktop))
    compiler.forget()


with Desktop(PROGRAM_FOLDER) as desktop:
    # xterm is called by its own name: what the alternative stands for differs from one to another.
    names = os.path.join(desktop.folder, "names")
    os.mkdir(names)
    os.symlink(shutil.which("xterm"), os.path.join(names, "x-terminal-emulator"))
    desktop.environment["PATH"] = names + ":" + desktop.environment["PATH"]
    compiler = Compiler(desktop)
    write_settings(desktop, compiler)
    for name, text in [("piece.csd", "<CsoundSynthesizer>\n</CsoundSynthesizer>\n"),
                       ("duo.orc", "instr 1\nendin\n"), ("duo.sco", "e\n")]:
        with open(os.path.join(desktop.folder, name), "w") as file:
            file.write(text)

    program = desktop.start_program(os.path.join(desktop.folder, "piece.csd"))
    desktop.window(EDITOR)
    csd_by_winsound(desktop, compiler)
    desktop.window(EDITOR)
    csd_by_csoundav(desktop, compiler, lambda w: desktop.tell("xdotool", "windowkill", w))
    desktop.window(EDITOR)

    def close_politely(window):
        program.kill()
        program.wait()
        assert not compiler.is_over()
        desktop.tell("xdotool", "windowactivate", "--sync", window)
        desktop.key("alt+F4")  # the window manager's

    csd_by_csoundav(desktop, compiler, close_politely)

    program = desktop.start_program(os.path.join(desktop.folder, "duo.orc"))
    desktop.window(EDITOR)
    project_by_winsound(desktop, compiler, program)
