"""Input devices as the kernel shows them: names, axes, properties, events."""

import functools
import pathlib
import select
import time

import evdev
from evdev import ecodes

from .checks import Failed, eventually

VENDOR = 0x6666
PRODUCTS = {"ir": 0x0080, "opt": 0x0C20, "cfg": 0x0001, "glass": 0x0085}


class InputNode:
    """One evdev node, opened for reading when something is asked of it."""

    def __init__(self, folder: pathlib.Path):
        self.path = pathlib.Path("/dev/input") / folder.name
        self.sysfs = (folder / "device").resolve()
        self.name = (folder / "device" / "name").read_text().strip()
        self.bus, self.vendor, self.product = (int((folder / "device" / "id" / name).read_text(), 16)
                                               for name in ("bustype", "vendor", "product"))

    @functools.cached_property
    def device(self) -> evdev.InputDevice:
        return evdev.InputDevice(self.path)

    def ranges(self) -> dict[int, tuple[int, int]]:
        """Smallest and largest value of every axis."""
        return {axis: (info.min, info.max) for axis, info in self.device.capabilities()[ecodes.EV_ABS]}

    def has_events(self, within_s: float = 0) -> bool:
        return bool(select.select([self.device.fd], [], [], max(within_s, 0))[0])

    def events(self, code: int, value: int) -> list[evdev.InputEvent]:
        """What comes up to the end of the frame in which an axis or button takes that value."""
        collected, reached = [], False
        deadline = time.monotonic() + 30
        while not (reached and collected[-1].type == ecodes.EV_SYN):
            if not self.has_events(deadline - time.monotonic()):
                raise Failed(f"{self.name} sends nothing more after {collected}")
            collected.append(self.device.read_one())
            reached = reached or values(collected[-1:], code) == [value]
        return collected


def values(events: list[evdev.InputEvent], code: int) -> list[int]:
    """What one axis or button went through."""
    kind = ecodes.EV_KEY if code >= ecodes.BTN_MISC else ecodes.EV_ABS
    return [event.value for event in events if (event.type, event.code) == (kind, code)]


def nodes(vendor: int = VENDOR, product: int | None = None, bus: int = ecodes.BUS_USB) -> list[InputNode]:
    """The evdev nodes of one kind of device, in the order of their location."""
    found = []
    for folder in pathlib.Path("/sys/class/input").glob("event*"):
        try:
            node = InputNode(folder)
        except OSError:  # gone meanwhile
            continue
        if (node.bus, node.vendor) == (bus, vendor) and product in (None, node.product):
            found.append(node)
    return sorted(found, key=lambda node: str(node.sysfs))


def raw_node(name: str) -> InputNode:
    """The kernel's own input device of a touchscreen."""
    return eventually(lambda: nodes(product=PRODUCTS[name]), f"an input device of {name}")[0]
