"""The parts of a running system that the programs under test need: modules, device manager, message bus."""

import pathlib
import shutil
import subprocess

from .checks import Failed

MODULES = ("usbhid", "hid-generic", "hid-multitouch", "evdev", "vhci-hcd", "uinput")


def run(*command, timeout_s: float = 60) -> str:
    """Runs a program to its end and returns what it printed. Fails unless its status is 0."""
    done = subprocess.run([str(word) for word in command], capture_output=True, text=True, timeout=timeout_s)
    if done.returncode:
        raise Failed(f"{' '.join(map(str, command))}: status {done.returncode}: {(done.stderr or done.stdout).strip()}")
    return done.stdout


def load_modules() -> None:
    for module in MODULES:
        run("modprobe", module)


def start_device_manager() -> None:
    pathlib.Path("/run/udev").mkdir(exist_ok=True)
    run("/lib/systemd/systemd-udevd", "--daemon")
    run("udevadm", "trigger", "--action=add", "-s", "usb", "-s", "input")
    settle()


def start_message_bus(policies: pathlib.Path) -> None:
    """The system's message bus, with the policy files of `policies` in force."""
    for policy in policies.glob("*.conf"):
        shutil.copy(policy, "/etc/dbus-1/system.d")
    pathlib.Path("/run/dbus").mkdir(exist_ok=True)
    run("dbus-daemon", "--system", "--fork", "--nopidfile")


def settle() -> None:
    """Waits until the device manager has handled every event so far."""
    run("udevadm", "settle", "--timeout=30")
