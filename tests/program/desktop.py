"""A desktop of its own for the built program: a display, a window manager, a home folder, and the
keys and the clipboard of a user who sits in front of it."""

import contextlib
import os
import re
import shutil
import signal
import subprocess
import tempfile
import time

from display import Display

PATIENCE = 60  # seconds until a condition that never comes true is called a failure
TICK = 0.012  # seconds: longer than the shortest interval of the program's timers

SOURCES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")
with open(os.path.join(SOURCES, "CMakeLists.txt")) as file:
    VERSION = re.search(r"^project\(Ardiphon VERSION (\S+)", file.read(), re.M)[1]


def wait_for(what, condition):
    """Waits until condition() gives something true, and gives that."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        result = condition()
        if result:
            return result
        time.sleep(0.02)
    raise AssertionError(f"waited in vain for {what}")


class Desktop:
    def __init__(self, program_folder):
        self.program = os.path.join(program_folder, "ArdiphonPro")
        self.folder = tempfile.mkdtemp(prefix="desktop-")
        self.temporary = os.path.join(self.folder, "tmp")
        self.processes = []
        self.display = None
        self.environment = {
            "PATH": os.environ["PATH"],
            "HOME": self.folder,
            "XDG_CONFIG_HOME": os.path.join(self.folder, "config"),
            "XDG_RUNTIME_DIR": self.folder,
            "TMPDIR": self.temporary,
            "LC_ALL": "C.UTF-8",
        }
        for name in ("ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"):
            if name in os.environ:
                self.environment[name] = os.environ[name]
        os.mkdir(self.temporary)

    def __enter__(self):
        try:
            self.open_display()
        except BaseException:
            self.__exit__()
            raise
        return self

    def open_display(self):
        read_end, write_end = os.pipe()
        # Without -noreset a client that leaves while it is the only one takes newcomers along.
        self.start(
            ["Xvfb", "-noreset", "-displayfd", str(write_end), "-screen", "0", "1280x1024x24"],
            pass_fds=[write_end],
        )
        os.close(write_end)
        with os.fdopen(read_end) as number:
            self.environment["DISPLAY"] = ":" + number.readline().strip()
        self.display = Display(self.environment["DISPLAY"])
        self.manager = self.start(["openbox"])
        root = self.display.root.value
        wait_for(
            "the window manager", lambda: self.display.property(root, "_NET_NUMBER_OF_DESKTOPS")
        )

    def __exit__(self, *_):
        if self.display:
            self.display.close()
        for process in reversed(self.processes):
            process.kill()
            process.wait()
        shutil.rmtree(self.folder)

    def start(self, command, **options):
        process = subprocess.Popen(
            command,
            env=self.environment,
            stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL,
            **options,
        )
        self.processes.append(process)
        return process

    def start_program(self, *arguments):
        return self.start([self.program, *arguments])

    def tell(self, *command):
        """What a command prints, or "" when it fails."""
        done = subprocess.run(command, env=self.environment, capture_output=True, text=True)
        return done.stdout.strip() if done.returncode == 0 else ""

    def has_focus(self, title):
        """Whether a window whose title matches has the focus: the window manager has turned to it,
        and keys arrive there."""
        return all(
            title in self.display.name(window)
            for window in [self.display.active(), self.display.focus()]
        )

    def window(self, title):
        """Waits until a window whose title matches has the focus."""
        wait_for(f"the window {title!r}", lambda: self.has_focus(title))

    def key(self, *keys):
        self.tell("xdotool", "key", "--clearmodifiers", "--delay", "0", *keys)

    def key_until(self, keys, what, condition):
        """Presses the keys, and again each second that the condition does not come true: a user
        whose key fell between two windows does the same, but not while a busy program is still to
        do what the key asks."""
        pressed = 0

        def pressed_and_true():
            nonlocal pressed
            if time.monotonic() - pressed > 1:
                if pressed:
                    self.settle()
                    if result := condition():
                        return result
                self.key(*keys)
                pressed = time.monotonic()
            return condition()

        return wait_for(what, pressed_and_true)

    def type(self, text):
        self.tell("xdotool", "type", "--clearmodifiers", "--delay", "0", text)

    def copied_text(self):
        """The whole text of the control that has the focus."""
        self.key("ctrl+a", "ctrl+c")
        return self.tell("xclip", "-selection", "clipboard", "-o")

    def processes_named(self, name):
        """The running children of this desktop with that name."""
        return [pid for pid in self.tell("pgrep", "-x", name).split() if self.is_ours(pid)]

    def is_ours(self, pid):
        try:
            with open(f"/proc/{pid}/environ", "rb") as environment:
                return f"HOME={self.folder}".encode() in environment.read().split(b"\0")
        except OSError:
            return False

    @contextlib.contextmanager
    def busy_manager(self):
        """The window manager answers only afterwards, as on a machine with much to do: what it then
        finds is always the same, however fast it would have been."""
        self.manager.send_signal(signal.SIGSTOP)
        try:
            yield
        finally:
            self.manager.send_signal(signal.SIGCONT)

    def shows(self, title):
        """Whether a window whose title matches is on the screen."""
        return bool(self.display.visible(title))

    def settle(self, window=None, ticks=3):
        """Waits until the program of that window, or of the one in front, and the window manager
        have done what they were asked, and what they then asked of each other. Between that the
        program's timers have had as many ticks."""
        window = window or self.display.active()
        for _ in range(ticks):
            self.hear(window)
            self.display.wait_for_manager()
            time.sleep(TICK)
        self.hear(window)

    def hear(self, window):
        """Waits until the program of that window has handled what came to it before. It answers as
        soon as it has read the question, so the second answer is the one that counts."""
        return self.display.program_answers(window) and self.display.program_answers(window)
