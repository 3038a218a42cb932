"""The parts of a running system that the programs under test need: modules, device manager, message bus."""

import functools
import pathlib
import shutil
import subprocess

MODULES = ("usbhid", "hid-generic", "hid-multitouch", "evdev", "vhci-hcd", "uinput")


run = functools.partial(subprocess.run, check=True, timeout=60)


def start(policies: pathlib.Path) -> None:
    """Starts them all, the message bus with the policy files of `policies` in force."""
    run(["modprobe", "--all", *MODULES])
    run(["/lib/systemd/systemd-udevd", "--daemon"])
    run(["udevadm", "trigger", "--action=add", "-s", "usb", "-s", "input"])
    settle()
    for policy in policies.glob("*.conf"):
        shutil.copy(policy, "/etc/dbus-1/system.d")
    run(["dbus-daemon", "--system", "--fork", "--nopidfile"])


def settle() -> None:
    """Waits until the device manager has handled every event so far."""
    run(["udevadm", "settle", "--timeout=30"])
