"""The whole chain: touches of emulated touchscreens through kernel, service, X server and the panel's windows."""

import pathlib
import plistlib

from . import service, window
from .chain import CALIBRATION_BLUE, STEADY, TARGET_RED, TOUCH_MS, Chain, targets
from .checks import Report, eventually, expect, expect_equal
from .driver_service import location_of
from .emulator import UNDISTORTED
from .input_nodes import raw_node
from .window import named

CONFIGURATION = pathlib.Path("/Library/VARNEXO")
SETTINGS_FILE = CONFIGURATION / "com.VARNEXO.Driver.Config.plist"
# What the user has chosen earlier; the scenarios apply it and feel it.
SETTINGS = {"TouchMode": 2, "EnableTouch": True, "ClickRange": 30, "Smoothness": 1, "CalibrateMode": 4,
            "CalibrateType": 0, "EnableRightClick": True, "RightClickTime": 800, "RightClickArea": 5,
            "EnableTouchSensitivity": True, "TouchSensitivityTime": 100, "TouchSensitivityArea": 5}
GLASS_BAR_CODE = "IR-2026-0000007"
STATUS_AT = 10  # of the calibration status in the device's configuration block


def lists_three_touchscreens(report: Report, chain: Chain) -> None:
    """The panel lists three touchscreens with kind, version, bar code and place"""
    CONFIGURATION.mkdir(parents=True, exist_ok=True)
    SETTINGS_FILE.write_bytes(plistlib.dumps(SETTINGS))
    window.start_session()
    chain.emulator.unplug_all()
    chain.emulator.bring({"opt": "optical", "cfg": "configuration-only"}, *UNDISTORTED)
    chain.emulator.bring({"glass": "infrared"}, "product=0x85", "serial=7")
    places = {name: location_of(raw_node(name)) for name in ("cfg", "opt", "glass")}
    for place in places.values():
        chain.driver.instance(place)
    chain.start_panel()
    chain.pictures.take("panel")
    rows = [chain.cells()[start:start + 5] for start in range(0, len(chain.cells()), 5)]
    report.note(f"table: {rows}")
    expect_equal([row[4] for row in rows], [f"0x{place:08X}" for place in places.values()], "places")
    expect_equal([row[1] for row in rows][1:], ["3.1.0007", "2.5.0012"], "versions")
    expect_equal([row[2] for row in rows], ["NO"] * 3, "calibrated")
    expect_equal((rows[0][0], rows[2][0]), ("Infrared Touchscreen", GLASS_BAR_CODE), "bar codes")


def applies_settings(report: Report, chain: Chain) -> None:
    """Settings made by touch reach every driver instance and the file"""
    chain.press("Settings")
    chain.touch(chain.windows.find("page tab", "Calibration"))
    chain.touch(chain.windows.find("radio button", "25 targets"))
    chain.pictures.take("settings")
    chain.touch(chain.windows.find("push button", "OK"))
    eventually(lambda: plistlib.loads(SETTINGS_FILE.read_bytes())["CalibrateMode"] == 25, "the saved file", 60)
    for name in ("cfg", "opt", "glass"):
        told = chain.instance(name).properties()["configration"]
        expect_equal({key: int(told[key]) for key in ("mode", "clickRange", "rightClickTime", "enableRightClick")},
                     {"mode": 2, "clickRange": 30, "rightClickTime": 800, "enableRightClick": 1}, f"settings of {name}")


def calibrates_by_touch(report: Report, chain: Chain) -> None:
    """25 targets touched, the service killed on the way, OK touched: the result is written, and touches hit their marks"""
    before = chain.errors("glass")
    chain.start_calibration(GLASS_BAR_CODE)
    for number, target in enumerate(targets()):
        if number == 13:
            chain.wait_for_target(target)
            chain.pictures.take("calibration")
            chain.driver.kill()
            chain.driver.start()
            chain.touch_target_until("glass", target, targets()[number + 1])
        else:
            chain.touch_target("glass", target)
    middle = (chain.desktop.width // 2 - 30, chain.desktop.height // 2 + 15)  # of OK, beside its text
    eventually(lambda: chain.desktop.pixel(*middle) not in (TARGET_RED, CALIBRATION_BLUE), "the button OK", 60)
    chain.pictures.take("calibration-finished")
    chain.emulator.tell(f"tap glass 0.5 0.5 {TOUCH_MS}")
    eventually(lambda: not chain.calibrating(), "the end of the calibration", 60)
    stored = eventually(lambda: _calibrated(chain), "the result in the touchscreen", 60)
    expect_equal(service.calibration_used(chain.driver, "glass"), stored["CalibParams"],
                 "what the service uses, beside what the touchscreen holds")
    chain.pictures.take("panel-calibrated")
    after = chain.errors("glass")
    report.note(f"before: {before}")
    report.note(f"after:  {after}")
    expect(after.mean() < before.mean() / 10, "the error has not fallen to a tenth")


def _calibrated(chain: Chain) -> dict[str, str] | None:
    stored = chain.emulator.stored("glass")
    done = bytes.fromhex(stored["DeviceConfig"])[STATUS_AT] == 1 and stored["mode"] == "work"
    return stored if done else None


def feels_settings(report: Report, chain: Chain) -> None:
    """A hold is exactly one right click, a shaky tap stays in place, and disabled touch moves nothing"""
    chain.desktop.cover()
    held = chain.clicks_of("hold glass 0.4 0.4 1500")
    expect_equal([click[:2] for click in held], [("press", 3), ("release", 3)], "clicks of a hold")

    chain.desktop.clicks()
    for command in ("down glass 0 0.6 0.6", "move glass 0 0.61 0.605", "move glass 0 0.595 0.61", "up glass 0"):
        chain.emulator.tell(command)
    shaky = chain.desktop.clicks_until(lambda click: click[0] == "release")
    expect_equal([click[:2] for click in shaky], [("press", 1), ("release", 1)], "clicks of a shaky tap")
    expect_equal(shaky[0][2:], shaky[1][2:], "places of press and release")
    chain.desktop.uncover()

    chain.press("Disable Touch")
    eventually(lambda: not chain.instance("glass").properties()["configration"]["enableTouch"], "touch switched off")
    chain.desktop.cover()
    place = chain.desktop.pointer()
    chain.emulator.tell(f"swipe glass 0.2 0.2 0.8 0.8 {TOUCH_MS}")
    chain.emulator.tell("wait 300")
    expect_equal(chain.desktop.pointer(), place, "the pointer after touches of a disabled touchscreen")
    # The other touchscreen's click comes after whatever this one might have done.
    steady = chain.clicks_of(f"tap cfg 0.5 0.5 {TOUCH_MS}")
    expect_equal([click[:2] for click in steady], [("press", 1), ("release", 1)], "clicks while one is off")
    chain.desktop.uncover()
    chain.press("Disable Touch")  # the same button switches it on again
    eventually(lambda: chain.instance("glass").properties()["configration"]["enableTouch"], "touch switched on")


def outlives_the_service(report: Report, chain: Chain) -> None:
    """The service killed under the panel: it says so, and works again by itself when the service is back"""
    disable = named(chain.shown, "push button", "Disable Touch")
    chain.touch(named(chain.shown, "cell", GLASS_BAR_CODE))
    chain.driver.kill()
    chain.desktop.click(*disable.middle)
    eventually(lambda: chain.windows.says("the touch driver service does not answer"), "the reason in the status line", 60)
    chain.pictures.take("panel-service-down")
    chain.driver.start()
    chain.desktop.click(*disable.middle)
    eventually(lambda: not chain.instance("glass").properties()["configration"]["enableTouch"], "touch switched off")
    eventually(lambda: chain.windows.says("Touch was disabled"), "what became of it in the status line", 60)
    chain.desktop.click(*disable.middle)
    eventually(lambda: chain.instance("glass").properties()["configration"]["enableTouch"], "touch switched on")

    chain.emulator.tell("unplug opt")
    eventually(lambda: len([each for each in chain.windows.elements() if each.role == "cell"]) == 10,
               "the rows of the two that are left, and no fewer", 60)
    chain.emulator.bring({"opt": "optical"})
    chain.wait_for_desktop(STEADY)


def stays_calibrated(report: Report, chain: Chain) -> None:
    """Still calibrated with the panel closed, the service restarted, its memory lost, and the touchscreen re-plugged"""
    chain.press("Exit")
    expect_equal(chain.panel.wait(60), 0, "the panel's exit status")
    held = bytes.fromhex(chain.emulator.stored("glass")["CalibParams"])
    eventually(lambda: held in chain.driver.remembered_calibrations(), "the touchscreen's calibration in the state", 10)
    chain.driver.stop()
    chain.driver.start()
    _hits(report, chain, "service restarted")
    chain.emulator.tell("unplug glass")
    chain.emulator.bring({"glass": "infrared"})
    _hits(report, chain, "re-plugged")
    chain.driver.stop()
    chain.driver.forget()
    chain.driver.start()
    eventually(lambda: chain.instance("glass").properties()["calibration"]["calibrateStatus"],
               "the calibration out of the touchscreen")
    _hits(report, chain, "the service's own memory lost")


def _hits(report: Report, chain: Chain, when: str) -> None:
    chain.wait_for_desktop("glass")
    errors = chain.errors("glass")
    report.note(f"{when}: {errors}")
    expect(max(errors.distances) < 3, f"touches miss, {when}")


def survives_unplugging(report: Report, chain: Chain) -> None:
    """Unplugged in the middle of a calibration the run ends; when the last touchscreen goes, so does the panel"""
    chain.start_panel()
    chain.start_calibration(GLASS_BAR_CODE)
    for target in targets()[:3]:
        chain.touch_target("glass", target)
    chain.emulator.tell("unplug glass")
    eventually(lambda: not chain.calibrating(), "the end of the run", 60)
    chain.shown = list(chain.windows.elements())
    expect_equal(len(chain.cells()), 10, "cells of the two that are left")
    chain.pictures.take("panel-two-left")
    chain.emulator.unplug_all()
    expect_equal(chain.panel.wait(60), 0, "the panel's exit status when the last touchscreen goes")
