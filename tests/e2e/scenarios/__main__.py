"""One part of the scenarios in its order, inside the guest. Arguments: the build folder with the programs, the part."""

import pathlib
import sys

from . import crash, kernel, panel, service, system
from .chain import Chain
from .checks import SHARE, Report
from .driver_service import DriverService
from .emulator import Emulator
from .screen import Desktop, XServer


def without_panel(report: Report, programs: pathlib.Path, emulator: Emulator, driver: DriverService) -> None:
    report.run(kernel.sees_three_kinds, emulator)
    report.run(kernel.keeps_fingers_apart, emulator)
    report.run(kernel.survives_unplugging, emulator)
    report.run(service.takes_touchscreens_over, emulator, driver)
    report.run(service.reads_touchscreens, emulator, driver)
    report.run(service.serves_many, emulator, driver)
    XServer()
    report.run(crash.loses_nothing, emulator, driver, Desktop())


def with_panel(report: Report, programs: pathlib.Path, emulator: Emulator, driver: DriverService) -> None:
    driver.start()
    XServer()
    chain = Chain(programs, emulator, driver, Desktop())
    report.run(panel.lists_three_touchscreens, chain)
    report.run(panel.applies_settings, chain)
    report.run(panel.calibrates_by_touch, chain)
    report.run(panel.feels_settings, chain)
    report.run(panel.outlives_the_service, chain)
    report.run(panel.stays_calibrated, chain)
    report.run(panel.survives_unplugging, chain)


PARTS = {"without-panel": without_panel, "with-panel": with_panel}


def main() -> int:
    build, part = pathlib.Path(sys.argv[1]), sys.argv[2]
    report = Report()
    system.start(build / "packaging")
    emulator = Emulator(build / "bin" / "touchscreen-emulator", SHARE / "emulator.log")
    PARTS[part](report, build / "bin", emulator, DriverService(build / "bin" / "touchdriverd"))
    return 0 if report.held() else 1


if __name__ == "__main__":
    sys.exit(main())
