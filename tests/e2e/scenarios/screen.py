"""An X server on the guest's own display, what it tells about the pointer, and pictures of it."""

import ctypes
import os
import pathlib
import subprocess
import termios
import tty

from .checks import SHARE, Failed, eventually, expect_equal

DISPLAY = ":0"
CONFIGURATION = """
Section "Device"
  Identifier "screen"
  Driver "modesetting"
  Option "AccelMethod" "none"
EndSection
Section "ServerFlags"
  Option "BlankTime" "0"
EndSection
"""
PICTURE_LINE = "/dev/ttyS1"


class XServer:
    """Xorg with its usual libinput driver, so that a touch takes the way it takes on a desktop."""

    def __init__(self):
        subprocess.run(["modprobe", "bochs"], check=True)
        eventually(lambda: pathlib.Path("/dev/dri/card0").exists(), "a display device")
        configuration = pathlib.Path("/run/xorg.conf")
        configuration.write_text(CONFIGURATION)
        socket = pathlib.Path("/tmp/.X11-unix/X0")
        self.process = subprocess.Popen(
            ["Xorg", DISPLAY, "vt1", "-keeptty", "-novtswitch", "-noreset", "-nolisten", "tcp", "-config", configuration,
             "-logfile", SHARE / "Xorg.log"], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
            stderr=(SHARE / "Xorg.errors").open("w"))
        eventually(lambda: socket.exists() or self.process.poll() is not None, "the X server's socket", 60)
        if self.process.poll() is not None:
            raise Failed("the X server has ended: " + (SHARE / "Xorg.errors").read_text()[-500:])
        os.environ["DISPLAY"] = DISPLAY


class PictureLine:
    """Asks the machine around the guest for pictures of the screen; they cost the guest no time."""

    def __init__(self):
        self.line = open(PICTURE_LINE, "r+b", buffering=0)
        tty.setraw(self.line.fileno(), termios.TCSANOW)

    def take(self, name: str) -> pathlib.Path:
        self.line.write(f"{name}.png\n".encode())
        answer = b""
        while not answer.endswith(b"\n"):
            answer += self.line.read(64)
        expect_equal(answer.decode().strip(), f"{name}.png", "the picture's answer")
        return SHARE / f"{name}.png"


class _Attributes(ctypes.Structure):
    _fields_ = [("background_pixmap", ctypes.c_ulong), ("background_pixel", ctypes.c_ulong),
                ("border_pixmap", ctypes.c_ulong), ("border_pixel", ctypes.c_ulong), ("bit_gravity", ctypes.c_int),
                ("win_gravity", ctypes.c_int), ("backing_store", ctypes.c_int), ("backing_planes", ctypes.c_ulong),
                ("backing_pixel", ctypes.c_ulong), ("save_under", ctypes.c_int), ("event_mask", ctypes.c_long),
                ("do_not_propagate_mask", ctypes.c_long), ("override_redirect", ctypes.c_int),
                ("colormap", ctypes.c_ulong), ("cursor", ctypes.c_ulong)]


class _ButtonEvent(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("root", ctypes.c_ulong),
                ("subwindow", ctypes.c_ulong), ("time", ctypes.c_ulong), ("x", ctypes.c_int), ("y", ctypes.c_int),
                ("x_root", ctypes.c_int), ("y_root", ctypes.c_int), ("state", ctypes.c_uint),
                ("button", ctypes.c_uint), ("same_screen", ctypes.c_int)]


class _Event(ctypes.Union):
    _fields_ = [("type", ctypes.c_int), ("button", _ButtonEvent), ("room", ctypes.c_long * 24)]


_BUTTON_PRESS, _BUTTON_RELEASE = 4, 5
_INPUT_ONLY = 2
_ANY_BUTTON = 0x1F00
_BUTTON_EVENTS = 1 << 2 | 1 << 3
_OVERRIDE_REDIRECT, _EVENT_MASK = 1 << 9, 1 << 11


class Desktop:
    """What a program on the desktop gets of touches: where the pointer is, and presses and releases."""

    def __init__(self):
        x = self.x = ctypes.CDLL("libX11.so.6")
        x.XOpenDisplay.restype = ctypes.c_void_p
        x.XDefaultRootWindow.restype = x.XCreateWindow.restype = x.XGetPixel.restype = ctypes.c_ulong
        x.XGetImage.restype = ctypes.c_void_p
        self.display = ctypes.c_void_p(x.XOpenDisplay(DISPLAY.encode()))
        if not self.display:
            raise Failed("the X server takes no connection")
        self.root = ctypes.c_ulong(x.XDefaultRootWindow(self.display))
        self.width, self.height = x.XDisplayWidth(self.display, 0), x.XDisplayHeight(self.display, 0)
        self.window = None

    def pointer(self) -> tuple[int, int]:
        """Where the pointer is, in pixels from the upper left corner."""
        return self._query()[:2]

    def _query(self) -> tuple[int, int, int]:
        root_x, root_y, other, mask = ctypes.c_int(), ctypes.c_int(), ctypes.c_int(), ctypes.c_uint()
        window = ctypes.c_ulong()
        self.x.XQueryPointer(self.display, self.root, ctypes.byref(window), ctypes.byref(window), ctypes.byref(root_x),
                             ctypes.byref(root_y), ctypes.byref(other), ctypes.byref(other), ctypes.byref(mask))
        return root_x.value, root_y.value, mask.value

    def buttons_held(self) -> bool:
        """Whether the pointer holds any button down, by the X server's own account."""
        return bool(self._query()[2] & _ANY_BUTTON)

    def pixel(self, x: int, y: int) -> int:
        """The colour that is shown at one place, 0xRRGGBB."""
        image = ctypes.c_void_p(self.x.XGetImage(self.display, self.root, x, y, 1, 1, ctypes.c_ulong(0xFFFFFFFF), 2))
        if not image:
            raise Failed(f"no picture of {x}, {y}")
        colour = self.x.XGetPixel(image, 0, 0) & 0xFFFFFF
        self.x.XDestroyImage(image)
        return colour

    def cover(self) -> None:
        """Puts an invisible window over everything, which takes every press and release."""
        attributes = _Attributes(override_redirect=1, event_mask=_BUTTON_EVENTS)
        self.window = ctypes.c_ulong(self.x.XCreateWindow(
            self.display, self.root, 0, 0, self.width, self.height, 0, 0, _INPUT_ONLY, None,
            ctypes.c_ulong(_OVERRIDE_REDIRECT | _EVENT_MASK), ctypes.byref(attributes)))
        self.x.XMapRaised(self.display, self.window)
        self.x.XSync(self.display, 0)

    def uncover(self) -> None:
        self.x.XDestroyWindow(self.display, self.window)
        self.x.XSync(self.display, 1)
        self.window = None

    def clicks_until(self, last, within_s: float = 30) -> list[tuple[str, int, int, int]]:
        """clicks(), waiting until one for which `last(click)` holds is among them."""
        taken = []

        def come() -> bool:
            taken.extend(self.clicks())
            return any(last(click) for click in taken)
        try:
            eventually(come, "the click that was waited for", within_s)
        except Failed as failure:
            raise Failed(f"{failure}, but {taken}") from None
        return taken

    def clicks(self) -> list[tuple[str, int, int, int]]:
        """Presses and releases that the cover has got since the last call: ("press", button, x, y)."""
        self.x.XSync(self.display, 0)
        event, taken = _Event(), []
        names = {_BUTTON_PRESS: "press", _BUTTON_RELEASE: "release"}
        while self.x.XPending(self.display):
            self.x.XNextEvent(self.display, ctypes.byref(event))
            if event.type in names:
                button = event.button
                taken.append((names[event.type], button.button, button.x_root, button.y_root))
        return taken
