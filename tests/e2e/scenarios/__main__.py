"""All scenarios in their order, inside the guest. Argument: the build folder with the programs under test."""

import pathlib
import sys

from . import crash, kernel, panel, service, system, usb
from .chain import Chain
from .checks import SHARE, Report
from .driver_service import DriverService
from .emulator import Emulator
from .screen import Desktop, XServer


def main() -> int:
    build = pathlib.Path(sys.argv[1])
    programs = build / "bin"
    report = Report()
    report.run(kernel.takes_emulated_devices)
    emulator = Emulator(programs / "touchscreen-emulator", SHARE / "emulator.log")
    report.run(kernel.sees_three_kinds, emulator)
    report.run(kernel.keeps_fingers_apart, emulator)
    report.run(kernel.survives_unplugging, emulator)
    report.run(usb.reads_every_parameter, emulator, programs)
    report.run(usb.loses_a_touchscreen_in_an_exchange, emulator, programs)
    report.run(usb.gives_up_on_touchscreens_that_do_not_answer, emulator, programs)

    system.start_message_bus(build / "packaging")
    driver = DriverService(programs / "touchdriverd")
    report.run(service.takes_touchscreens_over, emulator, driver)
    report.run(service.costs_little_time, emulator, driver, programs)
    report.run(service.takes_little_memory, emulator, driver)

    XServer()
    desktop = Desktop()
    report.run(crash.loses_nothing, emulator, driver, desktop)

    if (programs / "touchpanel").exists():  # without Qt there is none
        chain = Chain(programs, emulator, driver, desktop)
        report.run(panel.lists_three_touchscreens, chain)
        report.run(panel.applies_settings, chain)
        report.run(panel.calibrates_by_touch, chain)
        report.run(panel.feels_settings, chain)
        report.run(panel.stays_calibrated, chain)
        report.run(panel.survives_unplugging, chain)
    return 0 if report.held() else 1


if __name__ == "__main__":
    sys.exit(main())
