"""Input devices as the kernel shows them: names, axes, properties, events."""

import collections
import dataclasses
import fcntl
import os
import pathlib
import select
import struct
import time

from .checks import Failed

EV_SYN, EV_KEY, EV_REL, EV_ABS, EV_MSC = 0, 1, 2, 3, 4
ABS_X, ABS_Y, ABS_MT_SLOT, ABS_MT_POSITION_X, ABS_MT_POSITION_Y, ABS_MT_TRACKING_ID = 0, 1, 0x2F, 0x35, 0x36, 0x39
BTN_LEFT, BTN_RIGHT, BTN_TOUCH = 0x110, 0x111, 0x14A
INPUT_PROP_DIRECT = 1

_EVENT = struct.Struct("llHHi")


@dataclasses.dataclass(frozen=True)
class Event:
    time: float
    type: int
    code: int
    value: int


@dataclasses.dataclass(frozen=True)
class Axis:
    value: int
    minimum: int
    maximum: int


def _request(direction: int, number: int, size: int) -> int:
    return direction << 30 | size << 16 | ord("E") << 8 | number


BUS_USB, BUS_VIRTUAL = 3, 6


def nodes(vendor: int, product: int | None = None, bus: int = BUS_USB) -> list["InputNode"]:
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


class InputNode:
    """One evdev node, opened for reading when something is asked of it."""

    def __init__(self, folder: pathlib.Path):
        self.path = pathlib.Path("/dev/input") / folder.name
        self.sysfs = (folder / "device").resolve()
        self.name = (folder / "device" / "name").read_text().strip()
        self.bus, self.vendor, self.product = (int((folder / "device" / "id" / name).read_text(), 16)
                                               for name in ("bustype", "vendor", "product"))
        self._file: int | None = None
        self._unread = collections.deque()

    @property
    def file(self) -> int:
        if self._file is None:
            self._file = os.open(self.path, os.O_RDONLY | os.O_NONBLOCK)
        return self._file

    def close(self) -> None:
        if self._file is not None:
            os.close(self._file)
            self._file = None

    def axis(self, code: int) -> Axis | None:
        bits = self._bits(0x20 + EV_ABS, 0x40)
        if not bits >> code & 1:
            return None
        data = bytearray(24)
        fcntl.ioctl(self.file, _request(2, 0x40 + code, len(data)), data)
        return Axis(*struct.unpack("iii", data[:12]))

    def has_key(self, code: int) -> bool:
        return bool(self._bits(0x20 + EV_KEY, 0x300) >> code & 1)

    def has_property(self, code: int) -> bool:
        return bool(self._bits(0x09, 0x20) >> code & 1)

    def key_down(self, code: int) -> bool:
        return bool(self._bits(0x18, 0x300) >> code & 1)

    def _bits(self, number: int, count: int) -> int:
        data = bytearray(count // 8)
        fcntl.ioctl(self.file, _request(2, number, len(data)), data)
        return int.from_bytes(data, "little")

    def events(self, until, at_most_s: float = 30) -> list[Event]:
        """What comes until `until(events so far)` holds. Raises OSError when the device is gone."""
        collected = []
        deadline = time.monotonic() + at_most_s
        while not until(collected):
            if not self._unread and not select.select([self.file], [], [], max(deadline - time.monotonic(), 0))[0]:
                raise Failed(f"{self.name} tells nothing more after {collected}")
            collected.append(self._next())
        return collected

    def _next(self) -> Event:
        if not self._unread:
            self._unread.extend(_EVENT.iter_unpack(os.read(self.file, _EVENT.size * 256)))
        seconds, micros, kind, code, value = self._unread.popleft()
        return Event(seconds + micros / 1e6, kind, code, value)

    def has_events(self) -> bool:
        return bool(self._unread) or bool(select.select([self.file], [], [], 0)[0])


def values(events: list[Event], kind: int, code: int) -> list[int]:
    """What one axis or button went through."""
    return [event.value for event in events if (event.type, event.code) == (kind, code)]


def frame_after(kind: int, code: int, value: int):
    """For InputNode.events(): until the frame in which an axis or button takes that value is complete."""
    def complete(events: list[Event]) -> bool:
        seen = False
        for event in events:
            seen = seen or (event.type, event.code, event.value) == (kind, code, value)
            if seen and (event.type, event.code) == (EV_SYN, 0):
                return True
        return False
    return complete


LIFTED = frame_after(EV_KEY, BTN_TOUCH, 0)
