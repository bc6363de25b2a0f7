"""What is on a display, looked at through one connection that stays open: the windows, their names
and places, and the pixels. To start a program for each look would take longer than what is looked
at."""

import ctypes
import re
import select
import time

XLIB = ctypes.CDLL("libX11.so.6")
ANY_TYPE = 0
ALL_PLANES = ctypes.c_ulong(-1)
WHOLE_PIXELS = 2
IS_VIEWABLE = 2
CLIENT_MESSAGE = 33
STRUCTURE_NOTIFY = 1 << 17
SUBSTRUCTURE_NOTIFY = 1 << 19
SUBSTRUCTURE_REDIRECT = 1 << 20
PROPERTY_CHANGE = 1 << 22
PATIENCE = 60  # seconds until an answer that never comes is called a failure
WINDOW = ctypes.c_ulong


class WindowAttributes(ctypes.Structure):
    _fields_ = (
        [(name, ctypes.c_int) for name in ("x", "y", "width", "height", "border_width", "depth")]
        + [("visual", ctypes.c_void_p), ("root", WINDOW)]
        + [(name, ctypes.c_int) for name in ("kind", "bits", "gravity", "store")]
        + [("planes", ctypes.c_ulong), ("pixel", ctypes.c_ulong), ("save_under", ctypes.c_int)]
        + [("colormap", ctypes.c_ulong), ("map_installed", ctypes.c_int)]
        + [("map_state", ctypes.c_int)]
        + [(name, ctypes.c_long) for name in ("all_events", "our_events", "no_events")]
        + [("override_redirect", ctypes.c_int), ("screen", ctypes.c_void_p)]
    )


class ClientMessage(ctypes.Structure):
    _fields_ = [
        ("kind", ctypes.c_int),
        ("serial", ctypes.c_ulong),
        ("sent", ctypes.c_int),
        ("display", ctypes.c_void_p),
        ("window", WINDOW),
        ("name", ctypes.c_ulong),
        ("format", ctypes.c_int),
        ("data", ctypes.c_ulong * 5),
    ]


class Event(ctypes.Union):
    _fields_ = [("kind", ctypes.c_int), ("message", ClientMessage), ("room", ctypes.c_long * 24)]


class Image(ctypes.Structure):
    _fields_ = [
        ("width", ctypes.c_int),
        ("height", ctypes.c_int),
        ("left", ctypes.c_int),
        ("format", ctypes.c_int),
        ("data", ctypes.c_void_p),
        ("byte_order", ctypes.c_int),
        ("unit", ctypes.c_int),
        ("bit_order", ctypes.c_int),
        ("pad", ctypes.c_int),
        ("depth", ctypes.c_int),
        ("bytes_per_line", ctypes.c_int),
        ("bits_per_pixel", ctypes.c_int),
    ]


@ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)
def nothing_happened(_display, _error):
    """A window that is asked for may be gone by now: then the answer is empty."""
    return 0


XLIB.XSetErrorHandler(nothing_happened)
XLIB.XOpenDisplay.restype = ctypes.c_void_p
XLIB.XDefaultRootWindow.restype = WINDOW
XLIB.XInternAtom.restype = ctypes.c_ulong
XLIB.XCreateSimpleWindow.restype = WINDOW
XLIB.XGetImage.restype = ctypes.POINTER(Image)


class Display:
    def __init__(self, name):
        self.handle = ctypes.c_void_p(XLIB.XOpenDisplay(name.encode()))
        assert self.handle, name
        self.root = WINDOW(XLIB.XDefaultRootWindow(self.handle))
        self.atoms = {}
        self.questions = 0
        self.own_window = XLIB.XCreateSimpleWindow(self.handle, self.root, 0, 0, 1, 1, 0, 0, 0)
        changes = ctypes.c_long(PROPERTY_CHANGE)
        XLIB.XSelectInput(self.handle, WINDOW(self.own_window), changes)
        answers = ctypes.c_long(STRUCTURE_NOTIFY | SUBSTRUCTURE_NOTIFY)
        XLIB.XSelectInput(self.handle, self.root, answers)

    def close(self):
        XLIB.XCloseDisplay(self.handle)

    def atom(self, name):
        if name not in self.atoms:
            self.atoms[name] = ctypes.c_ulong(XLIB.XInternAtom(self.handle, name.encode(), 0))
        return self.atoms[name]

    def property(self, window, name):
        """The bytes or the numbers that a window tells under that name; None when it tells none."""
        kind, left = ctypes.c_ulong(), ctypes.c_ulong()
        width, count = ctypes.c_int(), ctypes.c_ulong()
        data = ctypes.c_void_p()
        failed = XLIB.XGetWindowProperty(
            self.handle, WINDOW(window), self.atom(name), ctypes.c_long(0), ctypes.c_long(10000),
            0, ctypes.c_ulong(ANY_TYPE), ctypes.byref(kind), ctypes.byref(width),
            ctypes.byref(count), ctypes.byref(left), ctypes.byref(data),
        )
        if failed or not data:
            return None
        if width.value == 32:
            numbers = ctypes.cast(data, ctypes.POINTER(ctypes.c_ulong))
            result = [numbers[i] for i in range(count.value)]
        else:
            result = ctypes.string_at(data, count.value * width.value // 8)
        XLIB.XFree(data)
        return result

    def name(self, window):
        name = self.property(window, "_NET_WM_NAME") or self.property(window, "WM_NAME") or b""
        return name.decode(errors="replace")

    def active(self):
        """The window to which the window manager has turned, or 0."""
        return (self.property(self.root.value, "_NET_ACTIVE_WINDOW") or [0])[0]

    def focus(self):
        """The window at which keys arrive, or 0."""
        window, way_back = WINDOW(), ctypes.c_int()
        XLIB.XGetInputFocus(self.handle, ctypes.byref(window), ctypes.byref(way_back))
        return window.value

    def attributes(self, window):
        found = WindowAttributes()
        told = XLIB.XGetWindowAttributes(self.handle, WINDOW(window), ctypes.byref(found))
        return found if told else None

    def visible(self, pattern):
        """The program windows in sight whose names match, as the window manager lists them."""
        return [
            window
            for window in self.property(self.root.value, "_NET_CLIENT_LIST") or []
            if re.search(pattern, self.name(window))
            and (found := self.attributes(window))
            and found.map_state == IS_VIEWABLE
        ]

    def place(self, window):
        """Left, top, width and height on the screen, without the frame; None without a window."""
        found = self.attributes(window)
        if not found:
            return None
        x, y, child = ctypes.c_int(), ctypes.c_int(), WINDOW()
        XLIB.XTranslateCoordinates(
            self.handle, WINDOW(window), self.root, 0, 0,
            ctypes.byref(x), ctypes.byref(y), ctypes.byref(child),
        )
        return x.value, y.value, found.width, found.height

    def framed_place(self, window):
        """The same with the frame; None also for a window that has none yet."""
        place = self.place(window)
        edges = self.property(window, "_NET_FRAME_EXTENTS")
        if not place or not edges:
            return None
        left, right, top, bottom = edges
        return (
            place[0] - left, place[1] - top, place[2] + left + right, place[3] + top + bottom
        )

    def rows(self, left, top, width, height):
        """The rows of a part of the screen, each three bytes a pixel: red, green and blue."""
        image = XLIB.XGetImage(
            self.handle, self.root, left, top, width, height, ALL_PLANES, WHOLE_PIXELS
        )
        assert image, (left, top, width, height)
        try:
            found = image.contents
            assert (found.bits_per_pixel, found.bytes_per_line) == (32, 4 * width)
            data = ctypes.string_at(found.data, 4 * width * height)
            colors = bytearray(3 * width * height)
            for i in range(3):
                colors[i::3] = data[2 - i :: 4]
            return [bytes(colors[at : at + 3 * width]) for at in range(0, len(colors), 3 * width)]
        finally:
            XLIB.XDestroyImage(image)

    def send(self, receiver, mask, window, name, *numbers):
        event = Event()
        event.message.kind = CLIENT_MESSAGE
        event.message.window = window
        event.message.name = self.atom(name).value
        event.message.format = 32
        event.message.data[: len(numbers)] = numbers
        XLIB.XSendEvent(
            self.handle, WINDOW(receiver), 0, ctypes.c_long(mask), ctypes.byref(event)
        )
        XLIB.XFlush(self.handle)

    def messages(self):
        """Waits a little for what the display tells, and gives the messages in that."""
        if not XLIB.XPending(self.handle):
            select.select([XLIB.XConnectionNumber(self.handle)], [], [], 0.1)
        event = Event()
        while XLIB.XPending(self.handle):
            XLIB.XNextEvent(self.handle, ctypes.byref(event))
            if event.kind == CLIENT_MESSAGE:
                yield event.message

    def program_answers(self, window):
        """Asks the program of a window whether it still reads, and waits for the answer: what came
        to it before is read then. False when the window is gone or its program never answers."""
        ping = self.atom("_NET_WM_PING").value
        self.questions += 1
        question = [ping, self.questions]
        self.send(window, 0, window, "WM_PROTOCOLS", *question, window)
        end = time.monotonic() + PATIENCE
        while ping in (self.property(window, "WM_PROTOCOLS") or []):
            if any(message.data[:2] == question for message in self.messages()):
                return True
            assert time.monotonic() < end, "waited in vain for a program's answer"
        return False

    def wait_for_manager(self):
        """The same for the window manager: it tells how wide the frame of a window would be."""
        edges = self.atom("_NET_FRAME_EXTENTS")
        XLIB.XDeleteProperty(self.handle, WINDOW(self.own_window), edges)
        mask = SUBSTRUCTURE_NOTIFY | SUBSTRUCTURE_REDIRECT
        self.send(self.root.value, mask, self.own_window, "_NET_REQUEST_FRAME_EXTENTS")
        end = time.monotonic() + PATIENCE
        while self.property(self.own_window, "_NET_FRAME_EXTENTS") is None:
            assert time.monotonic() < end, "waited in vain for the window manager's answer"
            list(self.messages())
