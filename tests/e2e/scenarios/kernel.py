"""Emulated touchscreens as the kernel takes them, before any of our own programs looks at them."""

import pathlib

from . import evdev, system
from .checks import Report, eventually, expect, expect_equal
from .emulator import Emulator

VENDOR = 0x6666
PRODUCTS = {"ir": 0x0080, "opt": 0x0C20, "cfg": 0x0001, "glass": 0x0085}
KINDS = {"ir": "infrared", "opt": "optical", "cfg": "configuration-only"}
UNDISTORTED = ("offset=0,0", "scale=1,1", "skew=0,0", "barrel=0", "noise=0")
UNPLUG_ROUNDS = 5


def takes_emulated_devices(report: Report) -> None:
    """The kernel takes emulated USB devices and makes input devices"""
    system.load_modules()
    system.start_device_manager()
    status = pathlib.Path("/sys/devices/platform/vhci_hcd.0/status").read_text().splitlines()
    free = [line for line in status if line.startswith("hs") and line.split()[2] == "004"]
    expect(len(free) >= 4, f"only {len(free)} ports for emulated devices")
    expect(pathlib.Path("/dev/uinput").exists(), "no /dev/uinput")


def _node(name: str) -> evdev.InputNode:
    return eventually(lambda: evdev.nodes(VENDOR, PRODUCTS[name]), f"an input device of {name}")[0]


def sees_three_kinds(report: Report, emulator: Emulator) -> None:
    """Three kinds of touchscreens are input devices with the right axes, and their touches arrive"""
    emulator.bring(KINDS, *UNDISTORTED)
    system.settle()
    for name in KINDS:
        node = _node(name)
        multi = name != "cfg"
        for code in (evdev.ABS_X, evdev.ABS_Y):
            expect_equal(node.axis(code), evdev.Axis(0, 0, 32767), f"{name}, axis {code}")
        expect_equal(node.axis(evdev.ABS_MT_SLOT), evdev.Axis(0, 0, 9) if multi else None, f"{name}, slots")
        expect_equal(node.axis(evdev.ABS_MT_TRACKING_ID) is not None, multi, f"{name}, contact ids")
        expect_equal(node.has_property(evdev.INPUT_PROP_DIRECT), multi, f"{name}, direct")
        expect(node.has_key(evdev.BTN_TOUCH), f"{name} has no touch button")

        emulator.tell(f"await {name} listening 60000")
        emulator.tell(f"tap {name} 0.25 0.75")
        events = node.events(evdev.LIFTED)
        node.close()
        expect_equal(evdev.values(events, evdev.EV_ABS, evdev.ABS_X), [8192], f"{name}, x")
        expect_equal(evdev.values(events, evdev.EV_ABS, evdev.ABS_Y), [24575], f"{name}, y")
        expect_equal(evdev.values(events, evdev.EV_KEY, evdev.BTN_TOUCH), [1, 0], f"{name}, touch")


def keeps_fingers_apart(report: Report, emulator: Emulator) -> None:
    """Two fingers keep their contacts apart, in any order of coming and leaving"""
    node = _node("ir")
    node.axis(evdev.ABS_X)
    emulator.tell("await ir listening 60000")
    for command in ("down ir 4 0.1 0.1", "down ir 2 0.9 0.9", "move ir 4 0.2 0.1", "up ir 4", "up ir 2"):
        emulator.tell(command)
    events = node.events(evdev.LIFTED)
    node.close()
    tracking = evdev.values(events, evdev.EV_ABS, evdev.ABS_MT_TRACKING_ID)
    expect_equal([id >= 0 for id in tracking], [True, True, False, False], f"contacts {tracking}")
    expect_equal(evdev.values(events, evdev.EV_ABS, evdev.ABS_MT_POSITION_X), [3277, 29490, 6553], "positions")
    expect_equal(evdev.values(events, evdev.EV_KEY, evdev.BTN_TOUCH), [1, 0], "touch")


def survives_unplugging(report: Report, emulator: Emulator) -> None:
    """A touchscreen that is unplugged and plugged in again comes back at the same place"""
    place = _node("opt").sysfs.parents[3].name
    for _ in range(UNPLUG_ROUNDS):
        emulator.tell("unplug opt")
        eventually(lambda: not evdev.nodes(VENDOR, PRODUCTS["opt"]), "the input device's end")
        emulator.plug("opt")
        expect_equal(_node("opt").sysfs.parents[3].name, place, "place on the bus")
    expect_equal(len(evdev.nodes(VENDOR)), len(KINDS), "input devices at the end")
    emulator.unplug_all()
    eventually(lambda: not evdev.nodes(VENDOR), "the last input device's end")
