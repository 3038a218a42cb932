"""What a crash of the driver service leaves behind."""

import random
import threading

import dbus

from . import service
from .checks import Report, eventually, expect, expect_equal
from .driver_service import DriverService, Instance
from .emulator import KINDS, UNDISTORTED, Emulator
from .screen import Desktop

CRASHES = 10
LONGEST_LIFE_S = 2.0
FIRST_VALUE = 500


class _Changes(threading.Thread):
    """A client that changes a setting again and again, as fast as it is answered, until the service is gone."""

    def __init__(self, instance_path: str, value: int):
        super().__init__()
        self.instance = Instance(dbus.SystemBus(private=True), instance_path)
        self.acknowledged = self.sent = value

    def run(self):
        try:
            while True:
                self.sent += 1
                self.instance.set("configration", rightClickTime=self.sent)
                self.acknowledged = self.sent
        except dbus.DBusException:  # the service has been killed
            pass


def loses_nothing(report: Report, emulator: Emulator, driver: DriverService, desktop: Desktop) -> None:
    """Killed at ten random points of a run, the service loses no setting and leaves no button down"""
    seed = 4
    moments = random.Random(seed)
    emulator.bring(KINDS, *UNDISTORTED)
    value = FIRST_VALUE
    pressed = 0
    desktop.cover()
    for _ in range(CRASHES):
        path = service.instance_of(driver, "ir").path
        service.instance_of(driver, "ir").set("configration", mode=2, enableRightClick=False)
        service.wait_for_pointer(emulator, "ir", service.pointer_of("ir"))
        changes = _Changes(path, value)
        changes.start()
        emulator.tell("down ir 0 0.3 0.3")
        for step in range(moments.randrange(6)):
            emulator.tell(f"move ir 0 {0.3 + 0.05 * step} 0.4")
        changes.join(moments.uniform(0, LONGEST_LIFE_S))
        pressed += desktop.buttons_held()
        driver.kill()
        changes.join()
        eventually(lambda: not desktop.buttons_held(), "the button's release after the crash")
        driver.start()
        kept = int(service.instance_of(driver, "ir").properties()["configration"]["rightClickTime"])
        expect(changes.acknowledged <= kept <= changes.sent,
               f"{changes.acknowledged} was acknowledged, {changes.sent} was sent, and {kept} is kept")
        value = kept
        emulator.tell("up ir 0")
        eventually(lambda: not desktop.buttons_held(), "the button's release when the finger leaves")
    report.note(f"{value - FIRST_VALUE} changes survived; the button was held at {pressed} of {CRASHES} crashes")
    expect(pressed > 0, "no crash happened while a button was held: nothing was shown")
    service.wait_for_pointer(emulator, "ir", service.pointer_of("ir"))
    emulator.tell("wait 100")
    emulator.tell("tap ir 0.5 0.5 150")

    def at_the_mark(click) -> bool:
        return abs(click[2] - desktop.width / 2) <= 1 and abs(click[3] - desktop.height / 2) <= 1
    taken = desktop.clicks_until(lambda click: click[0] == "release" and at_the_mark(click))
    expect_equal([click[0] for click in taken if at_the_mark(click)], ["press", "release"], "a tap after all that")
    count = [sum(1 for click in taken if click[0] == kind) for kind in ("press", "release")]
    expect_equal(count[0], count[1], "presses and releases that the desktop got")
    desktop.uncover()
