"""Emulated touchscreens as the kernel takes them, before any of our own programs looks at them."""

from evdev import ecodes

from . import system
from .checks import Report, eventually, expect, expect_equal
from .emulator import KINDS, UNDISTORTED, Emulator
from .input_nodes import PRODUCTS, nodes, raw_node, values


def sees_three_kinds(report: Report, emulator: Emulator) -> None:
    """The kernel makes input devices with the right axes of three kinds of touchscreens, and their touches arrive"""
    emulator.bring(KINDS, *UNDISTORTED)
    system.settle()
    for name in KINDS:
        node = raw_node(name)
        multi = name != "cfg"
        ranges = node.ranges()
        expect_equal((ranges[ecodes.ABS_X], ranges[ecodes.ABS_Y]), ((0, 32767), (0, 32767)), f"{name}, axes")
        expect_equal(ranges.get(ecodes.ABS_MT_SLOT), (0, 9) if multi else None, f"{name}, slots")
        expect_equal(ecodes.ABS_MT_TRACKING_ID in ranges, multi, f"{name}, contact ids")
        expect_equal(ecodes.INPUT_PROP_DIRECT in node.device.input_props(), multi, f"{name}, direct")

        emulator.tell(f"await {name} listening 60000")
        emulator.tell(f"tap {name} 0.25 0.75")
        events = node.events(ecodes.BTN_TOUCH, 0)
        for code, expected in ((ecodes.ABS_X, [8192]), (ecodes.ABS_Y, [24575]), (ecodes.BTN_TOUCH, [1, 0])):
            expect_equal(values(events, code), expected, f"{name}, {code}")


def keeps_fingers_apart(report: Report, emulator: Emulator) -> None:
    """Two fingers keep their contacts apart, in any order of coming and leaving"""
    node = raw_node("ir")
    node.ranges()  # opens it
    emulator.tell("await ir listening 60000")
    for command in ("down ir 4 0.1 0.1", "down ir 2 0.9 0.9", "move ir 4 0.2 0.1", "up ir 4", "up ir 2"):
        emulator.tell(command)
    events = node.events(ecodes.BTN_TOUCH, 0)
    contacts = values(events, ecodes.ABS_MT_TRACKING_ID)
    expect_equal([contact >= 0 for contact in contacts], [True, True, False, False], f"contacts {contacts}")
    expect_equal(values(events, ecodes.ABS_MT_POSITION_X), [3277, 29490, 6553], "positions")
    expect_equal(values(events, ecodes.BTN_TOUCH), [1, 0], "touch")


def survives_unplugging(report: Report, emulator: Emulator) -> None:
    """A touchscreen that is unplugged and plugged in again comes back at the same place"""
    place = raw_node("opt").sysfs.parents[3].name
    for _ in range(5):
        emulator.tell("unplug opt")
        eventually(lambda: not nodes(product=PRODUCTS["opt"]), "the input device's end")
        emulator.plug("opt")
        expect_equal(raw_node("opt").sysfs.parents[3].name, place, "place on the bus")
    expect_equal(len(nodes()), len(KINDS), "input devices at the end")
    emulator.unplug_all()
    eventually(lambda: not nodes(), "the last input device's end")
