"""Everything from the glass to the control panel's windows, and how a user would handle it."""

import dataclasses
import math
import pathlib
import statistics
import subprocess
import time

from . import service
from .checks import SHARE, Report, eventually, expect_equal
from .driver_service import DriverService, Instance
from .emulator import Emulator
from .screen import Desktop, PictureLine
from .window import Element, Windows, named

TARGET_RED, CALIBRATION_BLUE = 0xFF0000, 0x15B0E9
# A touchscreen that sits right on its screen does what a mouse would do elsewhere.
STEADY = "cfg"
TOUCH_MS = 150
# No finger is faster. The desktop's own library holds a press that is followed by its release at once back for 25 ms, to
# see whether a worn-out mouse button bounces, and would put it where the next touch is by then.
BETWEEN_TOUCHES_MS = 60
BETWEEN_TRIES_S = 5
# None of these is a target of a calibration.
OTHER_POINTS = [(0.13, 0.21), (0.41, 0.17), (0.69, 0.23), (0.87, 0.35), (0.17, 0.58), (0.39, 0.63), (0.61, 0.43),
                (0.86, 0.62), (0.15, 0.86), (0.37, 0.84), (0.62, 0.87), (0.84, 0.83)]


def targets() -> list[tuple[float, float]]:
    """The 25 targets of a calibration in the order in which they are shown, in fractions of the screen."""
    steps = [0.05 + 0.225 * step for step in range(5)]
    return [(x, y) for y in steps for x in steps]


@dataclasses.dataclass
class Errors:
    """How far touches miss what was touched, in pixels."""

    distances: list[float]

    def mean(self) -> float:
        return statistics.mean(self.distances)

    def __str__(self) -> str:
        return (f"mean {self.mean():.2f}, largest {max(self.distances):.2f} pixels on {len(self.distances)} points "
                "that are no targets")


class Chain:
    """The running emulator, service, desktop and panel."""

    def __init__(self, programs: pathlib.Path, emulator: Emulator, driver: DriverService, desktop: Desktop):
        self.programs, self.emulator, self.driver, self.desktop = programs, emulator, driver, desktop
        self.pictures = PictureLine()
        self.panel: subprocess.Popen | None = None
        self.windows: Windows | None = None  # of the panel
        self.shown: list[Element] = []

    def instance(self, name: str) -> Instance:
        return service.instance_of(self.driver, name)

    def start_panel(self) -> None:
        """Starts the panel and looks at its window once it is there."""
        log = (SHARE / "touchpanel.log").open("a")
        self.panel = subprocess.Popen([self.programs / "touchpanel"], stdin=subprocess.DEVNULL, stdout=log, stderr=log)
        self.windows = Windows(self.panel.pid)
        self.windows.find("push button", "Calibrate", 120)
        self.shown = list(self.windows.elements())

    def touch(self, element: Element) -> None:
        x, y = element.middle
        self.emulator.tell(f"tap {STEADY} {(x + 0.5) / self.desktop.width} {(y + 0.5) / self.desktop.height} {TOUCH_MS}")
        self.emulator.tell(f"wait {BETWEEN_TOUCHES_MS}")

    def press(self, button: str) -> None:
        """Touches a button of the panel's main window."""
        self.touch(named(self.shown, "push button", button))

    def cells(self) -> list[str]:
        """The texts of the panel's table when it was last looked at."""
        return [element.name for element in self.shown if element.role == "cell"]

    def clicks_of(self, command: str) -> list[tuple[str, int, int, int]]:
        """What a covered desktop gets of one touch, from its first press to its last release."""
        self.desktop.clicks()
        self.emulator.tell(command)
        return self.desktop.clicks_until(lambda click: click[0] == "release")

    def wait_for_desktop(self, name: str) -> None:
        """Touches until the desktop gets it: it takes a new pointer up some time later, without a sign."""
        self.desktop.cover()

        def clicked() -> bool:
            self.emulator.tell(f"tap {name} 0.5 0.5 {TOUCH_MS}")
            self.emulator.tell("wait 300")
            return any(click[0] == "release" for click in self.desktop.clicks())
        eventually(clicked, f"a click of {name} at the desktop", 60)
        self.desktop.uncover()

    def errors(self, name: str) -> Errors:
        """Touches points that are no targets, with the panel out of the way."""
        self.desktop.cover()
        found = []
        for x, y in OTHER_POINTS:
            clicks = self.clicks_of(f"tap {name} {x} {y} {TOUCH_MS}")
            expect_equal([click[:2] for click in clicks], [("press", 1), ("release", 1)], "a tap's click")
            # A pixel is named by its corner and touched in its middle.
            _, _, at_x, at_y = clicks[-1]
            found.append(math.hypot(at_x + 0.5 - x * self.desktop.width, at_y + 0.5 - y * self.desktop.height))
        self.desktop.uncover()
        return Errors(found)

    def start_calibration(self, cell: str) -> None:
        """Selects the touchscreen that the table shows with that text, and presses Calibrate."""
        self.touch(named(self.shown, "cell", cell))
        self.press("Calibrate")

    def shows(self, target: tuple[float, float]) -> bool:
        x, y = (int(target[0] * self.desktop.width), int(target[1] * self.desktop.height))
        return self.desktop.pixel(x, y) == TARGET_RED

    def wait_for_target(self, target: tuple[float, float]) -> None:
        eventually(lambda: self.shows(target), f"the target at {target}", 60)

    def touch_target(self, name: str, target: tuple[float, float]) -> None:
        """Waits for a target and touches it."""
        self.wait_for_target(target)
        self.emulator.tell(f"tap {name} {target[0]} {target[1]} {TOUCH_MS}")

    def touch_target_until(self, name: str, target: tuple[float, float], next_target: tuple[float, float]) -> None:
        """Touches a target until the next one shows: a service that has just been started lets touches go by."""
        def taken() -> bool:
            if self.shows(target):
                self.emulator.tell(f"tap {name} {target[0]} {target[1]} {TOUCH_MS}")
            # One touch too many would count for the next target.
            deadline = time.monotonic() + BETWEEN_TRIES_S
            while not self.shows(next_target) and time.monotonic() < deadline:
                time.sleep(0.05)
            return self.shows(next_target)
        eventually(taken, f"the target at {next_target} after touches of the one before", 60)

    def calibrating(self) -> bool:
        """Whether the calibration screen covers everything."""
        return self.desktop.pixel(1, self.desktop.height // 2) == CALIBRATION_BLUE
