"""The control panel's windows, read through the desktop's accessibility interface as a screen reader does."""

import dataclasses
import os
import subprocess

import dbus

from .checks import Failed, eventually

ACCESSIBLE = "org.a11y.atspi.Accessible"
COMPONENT = "org.a11y.atspi.Component"
ROOT = "/org/a11y/atspi/accessible/root"
SHOWING = 25  # bit of a state set
TOUCHABLE = {"push button", "cell", "page tab", "radio button", "check box"}
LEAVES = TOUCHABLE - {"page tab"}
PASSED_OVER = {"label", "scroll bar", "spin box", "menu bar", "popup menu", "column header", "row header", "separator"}


@dataclasses.dataclass(frozen=True)
class Element:
    """One thing in a window: what it is, what it is called, and where its middle is, in pixels of the screen."""

    role: str
    name: str
    middle: tuple[int, int]


def start_session() -> None:
    """A message bus of the user's session, on which programs describe their windows."""
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
        daemon = self.bus.get_object(dbus.BUS_DAEMON_NAME, dbus.BUS_DAEMON_PATH, introspect=False)
        for name in filter(lambda name: name.startswith(":"), self.bus.list_names()):
            try:
                if daemon.GetConnectionUnixProcessID(name, dbus_interface=dbus.BUS_DAEMON_IFACE) == process_id:
                    return name
            except dbus.DBusException:  # gone meanwhile
                continue
        return None

    def elements(self):
        """Everything that is shown now, the newest window first, each thing followed by what is in it.

        Yields one by one, since every question to a window takes its time; stop asking once there is enough.
        """
        yield from self._in(self._object(ROOT), reversed)

    def says(self, text: str) -> bool:
        """Whether a label that is shown has `text` in it."""
        waiting = [self._object(ROOT)]
        while waiting:
            thing = waiting.pop()
            try:
                low, _ = thing.GetState(dbus_interface=ACCESSIBLE)
                if thing.path != ROOT and not low >> SHOWING & 1:
                    continue
                if text in str(thing.Get(ACCESSIBLE, "Name", dbus_interface=dbus.PROPERTIES_IFACE)):
                    return True
                waiting += [self._object(path) for _, path in thing.GetChildren(dbus_interface=ACCESSIBLE)]
            except dbus.DBusException:  # closed meanwhile, or busy
                continue
        return False

    def _object(self, path: str):
        return self.bus.get_object(self.name, path, introspect=False)

    def _in(self, thing, order=iter):
        try:
            for _, path in order(thing.GetChildren(dbus_interface=ACCESSIBLE)):
                yield from self._below(self._object(path))
        except dbus.DBusException:  # closed meanwhile, or busy
            return

    def _below(self, thing):
        low, _ = thing.GetState(dbus_interface=ACCESSIBLE)
        role = str(thing.GetRoleName(dbus_interface=ACCESSIBLE))
        if not low >> SHOWING & 1 or role in PASSED_OVER:
            return
        if role in TOUCHABLE:
            name = str(thing.Get(ACCESSIBLE, "Name", dbus_interface=dbus.PROPERTIES_IFACE))
            x, y, width, height = map(int, thing.GetExtents(dbus.UInt32(0), dbus_interface=COMPONENT))
            yield Element(role, name, (x + width // 2, y + height // 2))
        if role not in LEAVES:
            yield from self._in(thing)

    def find(self, role: str, name: str, within_s: float = 60) -> Element:
        """The first shown element of that role whose name begins so; waits for it."""
        return eventually(lambda: _first(self.elements(), role, name), f"a {role} {name!r}", within_s)


def _first(elements, role: str, name: str) -> Element | None:
    return next((each for each in elements if each.role == role and each.name.startswith(name)), None)


def named(elements: list[Element], role: str, name: str) -> Element:
    """The element of that role whose name begins so."""
    found = _first(elements, role, name)
    if not found:
        raise Failed(f"there is no {role} {name!r}, but {sorted((each.role, each.name) for each in elements)}")
    return found
