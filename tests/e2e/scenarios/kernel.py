"""The ground that everything else stands on."""

import pathlib
import subprocess

from .checks import Failed, expect

MODULES = ("usbhid", "hid-generic", "hid-multitouch", "evdev", "vhci-hcd", "uinput")


def has_what_touchscreens_need(report):
    """The kernel takes emulated USB devices and makes input devices"""
    for module in MODULES:
        loaded = subprocess.run(["modprobe", module], capture_output=True, text=True)
        if loaded.returncode:
            raise Failed(loaded.stderr.strip())
    status = pathlib.Path("/sys/devices/platform/vhci_hcd.0/status").read_text().splitlines()
    free = [line for line in status if line.startswith("hs") and line.split()[2] == "004"]
    expect(len(free) >= 4, f"only {len(free)} ports for emulated devices")
    expect(pathlib.Path("/dev/uinput").exists(), "no /dev/uinput")
