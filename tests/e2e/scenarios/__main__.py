"""All scenarios in their order, inside the guest. Argument: the build folder with the programs under test."""

import pathlib
import sys

from . import kernel, usb
from .checks import SHARE, Report
from .emulator import Emulator


def main() -> int:
    programs = pathlib.Path(sys.argv[1]) / "bin"
    report = Report()
    if report.run(kernel.takes_emulated_devices):
        emulator = Emulator(programs / "touchscreen-emulator", SHARE / "emulator.log")
        report.run(kernel.sees_three_kinds, emulator)
        report.run(kernel.keeps_fingers_apart, emulator)
        report.run(kernel.survives_unplugging, emulator)
        report.run(usb.reads_every_parameter, emulator, programs)
        report.run(usb.loses_a_touchscreen_in_an_exchange, emulator, programs)
        report.run(usb.gives_up_on_touchscreens_that_do_not_answer, emulator, programs)
        emulator.end()
    return 0 if report.held() else 1


if __name__ == "__main__":
    sys.exit(main())
