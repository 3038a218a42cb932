"""An X server on the guest's own display, its pointer and clicks, and pictures of it."""

import os
import pathlib
import subprocess
import termios
import tty

from Xlib import X, display
from Xlib.ext import xtest

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
ANY_BUTTON = 0x1F00
CLICKS = {X.ButtonPress: "press", X.ButtonRelease: "release"}


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


class Desktop:
    """What a program on the desktop gets of touches: where the pointer is, and presses and releases."""

    def __init__(self):
        self.display = display.Display(DISPLAY)
        screen = self.display.screen()
        self.root, self.width, self.height = screen.root, screen.width_in_pixels, screen.height_in_pixels
        self.window = None

    def pointer(self) -> tuple[int, int]:
        """Where the pointer is, in pixels from the upper left corner."""
        found = self.root.query_pointer()
        return found.root_x, found.root_y

    def buttons_held(self) -> bool:
        """Whether the pointer holds any button down, as the X server sees it."""
        return bool(self.root.query_pointer().mask & ANY_BUTTON)

    def click(self, x: int, y: int) -> None:
        """A click of a mouse, for when no touch gets through."""
        xtest.fake_input(self.display, X.MotionNotify, x=x, y=y)
        for event in CLICKS:
            xtest.fake_input(self.display, event, 1)
        self.display.sync()

    def pixel(self, x: int, y: int) -> int:
        """The colour that is shown at one place, 0xRRGGBB."""
        return int.from_bytes(self.root.get_image(x, y, 1, 1, X.ZPixmap, 0xFFFFFFFF).data[:3], "little")

    def cover(self) -> None:
        """Puts an invisible window over everything, which takes every press and release."""
        self.window = self.root.create_window(
            0, 0, self.width, self.height, 0, 0, X.InputOnly, override_redirect=True,
            event_mask=X.ButtonPressMask | X.ButtonReleaseMask)
        self.window.configure(stack_mode=X.Above)
        self.window.map()
        self.display.sync()

    def uncover(self) -> None:
        self.window.destroy()
        self.clicks()

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
        self.display.sync()
        events = [self.display.next_event() for _ in range(self.display.pending_events())]
        return [(CLICKS[event.type], event.detail, event.root_x, event.root_y) for event in events if event.type in CLICKS]
