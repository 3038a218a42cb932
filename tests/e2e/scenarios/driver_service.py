"""The driver service: its process, and what a client sees of it on the system's message bus."""

import os
import pathlib
import plistlib
import re
import shutil
import subprocess

import dbus

from .checks import SHARE, Failed, eventually

NAME = "com.VARNEXO.TouchDriver1"
ROOT = "/com/VARNEXO/TouchDriver1"
REGISTRY = f"{NAME}.Registry"
OBJECT = f"{NAME}.Object"
VERSION = 1
USB_DEVICE = re.compile(r"\d+-[\d.]+")
STATE = pathlib.Path("/var/lib/touchdriverd")


def location_of(node) -> int:
    """The location id of the touchscreen that an input node belongs to: bus number, then four bits for each port."""
    place = next(parent.name for parent in node.sysfs.parents if USB_DEVICE.fullmatch(parent.name))
    bus, ports = place.split("-")
    location = int(bus) << 24
    for digit, port in enumerate(ports.split(".")):
        location |= int(port) << (20 - 4 * digit)
    return location


class Instance:
    """One driver instance, as a control panel sees it."""

    def __init__(self, bus, path: str):
        self.path = path
        self.object = bus.get_object(NAME, path, introspect=False)

    def properties(self) -> dict:
        return self.object.Properties(dbus_interface=OBJECT, byte_arrays=True)

    def set(self, name: str, **entries) -> None:
        self.object.SetProperty(name, dbus.Dictionary(entries, signature="sv", variant_level=1), dbus_interface=OBJECT)


class DriverService:
    """The running service. Start it again after an end of any kind."""

    def __init__(self, program: pathlib.Path):
        self.program = program
        self.process = None
        self.bus = dbus.SystemBus()
        STATE.mkdir(parents=True, exist_ok=True)

    def start(self) -> None:
        # A busy bus hears late that the last one has ended.
        eventually(lambda: not self.bus.name_has_owner(NAME), "the end of the last service's name", 30)
        log = (SHARE / "touchdriverd.log").open("a")
        environment = {**os.environ, "STATE_DIRECTORY": str(STATE)}
        self.process = subprocess.Popen([self.program], stdin=subprocess.DEVNULL, stdout=log, stderr=log,
                                        env=environment)
        eventually(lambda: self.bus.name_has_owner(NAME) or self.process.poll() is not None, "the service's name", 30)
        if self.process.poll() is not None:
            raise Failed(f"the service has ended with status {self.process.returncode}")

    def kill(self) -> None:
        """As in a crash: it gets no chance to do anything more."""
        self.process.kill()
        self.process.wait()

    def stop(self) -> int:
        self.process.terminate()
        return self.process.wait(20)

    def forget(self) -> None:
        """Takes away what a stopped service would find of its earlier runs."""
        shutil.rmtree(STATE)
        STATE.mkdir()

    def remembered_calibrations(self) -> list[bytes]:
        files = [plistlib.loads(file.read_bytes()) for file in STATE.glob("touchscreen-*.plist")]
        return [file["calibration"]["calibParams"] for file in files]

    def instances(self) -> dict[int, Instance]:
        """All driver instances by location id."""
        registry = self.bus.get_object(NAME, ROOT, introspect=False)
        found = {}
        for path in registry.InstancesOf(dbus.UInt32(VERSION), "VARNEXOTouchScreenDriver", dbus_interface=REGISTRY):
            try:
                children = self.bus.get_object(NAME, path, introspect=False).Children(dbus_interface=OBJECT)
                location = int(Instance(self.bus, children[0]).properties()["LocationID"])
            except dbus.DBusException as error:
                if error.get_dbus_name() != "org.freedesktop.DBus.Error.UnknownObject":
                    raise
                continue  # gone meanwhile
            found[location] = Instance(self.bus, path)
        return found

    def instance(self, location: int) -> Instance:
        return eventually(lambda: self.instances().get(location), f"the driver instance at {location:08x}")
