"""The panel's USB side on a real bus: libusb, control transfers, faults."""

import pathlib
import subprocess
import time

from .checks import Report, expect, expect_equal
from .emulator import Emulator
from .kernel import KINDS, PRODUCTS

BLOCKS = ("ScreenProps", "DeviceConfig", "CalibParams")
VERSION_AT, BAR_CODE_AT, BAR_CODE_SIZE = 233, 253, 40


def _read(programs: pathlib.Path) -> tuple[dict[str, tuple[int, bytes]], list[str]]:
    """Result and context of every touchscreen by product, and the diagnostics."""
    done = subprocess.run([programs / "read_parameters"], capture_output=True, text=True, timeout=60)
    expect_equal(done.returncode, 0, "status of the reader")
    found = {}
    for line in done.stdout.splitlines():
        _, product, result, context = line.split()
        found[product] = (int(result), bytes.fromhex(context))
    return found, done.stderr.splitlines()


def _text(context: bytes, at: int, size: int) -> str:
    return context[at:at + size].split(b"\0")[0].decode()


def reads_every_parameter(report: Report, emulator: Emulator, programs: pathlib.Path) -> None:
    """Every block of every kind comes over the bus as the touchscreen has stored it"""
    emulator.bring(KINDS)
    began = time.monotonic()
    found, complaints = _read(programs)
    report.note(f"reading an infrared and an optical touchscreen took {(time.monotonic() - began) * 1000:.0f} ms, "
                "program start included")
    expect_equal(complaints, [], "diagnostics")
    for name in ("ir", "opt"):
        stored = emulator.stored(name)
        result, context = found[f"{PRODUCTS[name]:04x}"]
        expect_equal(result, 1, f"{name}, result")
        expect_equal(context[:232].hex(), "".join(stored[block] for block in BLOCKS), f"{name}, blocks")
        minor, major, low, high = bytes.fromhex(stored["version"])
        expect_equal(_text(context, VERSION_AT, 20), f"{major}.{minor}.{high << 8 | low:04}", f"{name}, version")
        expect_equal(stored["mode"], "work", f"{name}, mode afterwards")
    bar_code = bytes.fromhex(emulator.stored("ir")["barcode"]).decode()
    expect_equal(_text(found["0080"][1], BAR_CODE_AT, BAR_CODE_SIZE), bar_code, "infrared bar code")
    expect(found["0001"][1] == bytes(293), "the configuration-only kind was asked for something")


def loses_a_touchscreen_in_an_exchange(report: Report, emulator: Emulator, programs: pathlib.Path) -> None:
    """A touchscreen that is unplugged in the middle of an exchange fails cleanly, and works when it is back"""
    emulator.bring(KINDS)
    emulator.tell("fault ir unplugs-after-packets 7")
    found, complaints = _read(programs)
    expect_equal(found["0080"][0], 0, "result of the broken exchange")
    expect_equal(complaints[-1], "To set the touchscreen to the work mode failed.", "the last complaint")
    expect_equal(found["0c20"][0], 1, "result of the other touchscreen")
    emulator.tell("await ir unplugged")
    emulator.plug("ir")
    found, complaints = _read(programs)
    expect_equal((found["0080"][0], complaints), (1, []), "result once it is back")


def gives_up_on_touchscreens_that_do_not_answer(report: Report, emulator: Emulator, programs: pathlib.Path) -> None:
    """Touchscreens that refuse transfers or are dead end with the panel's own message"""
    for fault in ("stalls", "dies-after-packets 0"):
        emulator.bring(KINDS)
        emulator.tell(f"fault ir {fault}")
        _, complaints = _read(programs)
        expect_equal(complaints, ["To set the touchscreen to the diagnosis mode failed."], f"one that {fault}")
        emulator.tell("unplug ir")
    emulator.tell("fault ir none")
    emulator.unplug_all()
