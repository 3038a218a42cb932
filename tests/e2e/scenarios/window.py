"""The control panel's windows, read through the desktop's accessibility interface as a screen reader does."""

import dataclasses
import os
import subprocess

import dbus

from .checks import Failed, eventually

ACCESSIBLE = "org.a11y.atspi.Accessible"
COMPONENT = "org.a11y.atspi.Component"
ROOT = "/org/a11y/atspi/accessible/root"
_ENABLED, _SHOWING = 8, 25  # bits of a state set
TOUCHABLE = {"push button", "cell", "page tab", "radio button", "check box"}
LEAVES = TOUCHABLE - {"page tab"}
PASSED_OVER = {"label", "scroll bar", "spin box", "menu bar", "popup menu", "column header", "row header", "separator"}


@dataclasses.dataclass(frozen=True)
class Element:
    """One thing in a window: what it is, what it is called, and where its middle is, in pixels of the screen."""

    role: str
    name: str
    enabled: bool
    middle: tuple[int, int]


def start_session() -> None:
    """A message bus of the user's session, on which programs tell what their windows hold."""
    started = subprocess.run(["dbus-daemon", "--session", "--fork", "--print-address"], check=True,
                             capture_output=True, text=True)
    os.environ["DBUS_SESSION_BUS_ADDRESS"] = started.stdout.strip()
    os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"


class Windows:
    """All windows of one process."""

    def __init__(self, process_id: int):
        session = dbus.bus.BusConnection(os.environ["DBUS_SESSION_BUS_ADDRESS"])
        address = session.get_object("org.a11y.Bus", "/org/a11y/bus").GetAddress(dbus_interface="org.a11y.Bus")
        self.bus = dbus.bus.BusConnection(address)
        self.name = eventually(lambda: self._name_of(process_id), "the panel on the accessibility bus", 60)

    def _name_of(self, process_id: int) -> str | None:
        daemon = self.bus.get_object("org.freedesktop.DBus", "/org/freedesktop/DBus", introspect=False)
        for name in daemon.ListNames(dbus_interface="org.freedesktop.DBus"):
            if not name.startswith(":"):
                continue
            try:
                if daemon.GetConnectionUnixProcessID(name, dbus_interface="org.freedesktop.DBus") == process_id:
                    return str(name)
            except dbus.DBusException:  # gone meanwhile
                continue
        return None

    def elements(self):
        """Everything that is shown now, the newest window first, each thing followed by what is in it.

        Yields one by one, since every question to a window takes its time; stop asking once there is enough.
        """
        try:
            windows = self._object(ROOT).GetChildren(dbus_interface=ACCESSIBLE)
        except dbus.DBusException:  # the program is busy, or gone
            return
        for _, window in reversed(windows):
            yield from self._below(window)

    def _object(self, path: str):
        return self.bus.get_object(self.name, path, introspect=False)

    def _below(self, path: str):
        thing = self._object(path)
        try:
            low, _ = thing.GetState(dbus_interface=ACCESSIBLE)
            role = str(thing.GetRoleName(dbus_interface=ACCESSIBLE))
            if not low >> _SHOWING & 1 or role in PASSED_OVER:
                return
            if role in TOUCHABLE:
                yield self._touchable(thing, role, bool(low >> _ENABLED & 1))
            children = [] if role in LEAVES else thing.GetChildren(dbus_interface=ACCESSIBLE)
        except dbus.DBusException:  # closed meanwhile
            return
        for _, child in children:
            yield from self._below(child)

    @staticmethod
    def _touchable(thing, role: str, enabled: bool) -> Element:
        name = str(thing.Get(ACCESSIBLE, "Name", dbus_interface="org.freedesktop.DBus.Properties"))
        x, y, width, height = map(int, thing.GetExtents(dbus.UInt32(0), dbus_interface=COMPONENT))
        return Element(role, name, enabled, (x + width // 2, y + height // 2))

    def find(self, role: str, name: str, within_s: float = 60) -> Element:
        """The first shown element of that role whose name begins so; waits for it."""
        seen = {}

        def shown():
            seen.clear()
            for element in self.elements():
                seen[element.role, element.name] = element
                if element.role == role and element.name.startswith(name):
                    return element
            return None
        try:
            return eventually(shown, f"a {role} {name!r}", within_s)
        except Failed as failure:
            raise Failed(f"{failure}; there are {sorted(seen)}") from None

def named(elements: list[Element], role: str, name: str) -> Element:
    """The element of that role whose name begins so."""
    for element in elements:
        if element.role == role and element.name.startswith(name):
            return element
    seen = ", ".join(f"{element.role} {element.name!r}" for element in elements if element.name)
    raise Failed(f"there is no {role} {name!r}, but {seen}")
