"""The driver service between the kernel's touchscreens and its pointers, with no desktop around."""

from evdev import ecodes

from .checks import Report, eventually, expect, expect_equal
from .driver_service import DriverService, location_of
from .emulator import KINDS, UNDISTORTED, Emulator
from .input_nodes import InputNode, nodes, raw_node, values

MANY = 16


def pointers() -> dict[str, InputNode]:
    """What the service makes of touchscreens, by name."""
    return {node.name: node for node in nodes(bus=ecodes.BUS_VIRTUAL)}


def pointer_of(name: str) -> InputNode:
    called = f"Touchscreen {location_of(raw_node(name)):08x} pointer"
    return eventually(lambda: pointers().get(called), f"{called!r}")


def wait_for_pointer(emulator: Emulator, name: str, pointer: InputNode) -> None:
    """Touches until the pointer follows: the service first reads what a touchscreen holds, without announcing its end."""
    def follows() -> bool:
        emulator.tell(f"tap {name} 0.9 0.9 150")
        emulator.tell("wait 200")
        return pointer.has_events()
    eventually(follows, f"touches of {name} at its pointer", 60)


def instance_of(service: DriverService, name: str):
    return service.instance(location_of(raw_node(name)))


def calibration_used(service: DriverService, name: str) -> str:
    """The calibration that the service applies, in hexadecimal."""
    return bytes(instance_of(service, name).properties()["calibration"]["calibParams"]).hex()


def takes_touchscreens_over(report: Report, emulator: Emulator, service: DriverService) -> None:
    """The service takes every touchscreen over, and a pointer follows its touches"""
    emulator.bring(KINDS, *UNDISTORTED)
    service.start()
    for name in KINDS:
        raw = raw_node(name)
        instance_of(service, name)
        pointer = pointer_of(name)
        ranges = pointer.ranges()
        expect_equal((ranges[ecodes.ABS_X], ranges[ecodes.ABS_Y]), ((0, 32767), (0, 32767)), f"{name}, axes of the pointer")
        wait_for_pointer(emulator, name, pointer)
        raw.ranges()  # opens it, so that it would get touches
        emulator.tell(f"tap {name} 0.25 0.75 150")
        events = pointer.events(ecodes.ABS_X, 8192)
        expect_equal(values(events, ecodes.ABS_Y)[-1], 24575, f"{name}, y of the pointer")
        events = pointer.events(ecodes.BTN_LEFT, 0)
        expect_equal(values(events, ecodes.BTN_LEFT), [1, 0], f"{name}, left button")
        expect(not raw.has_events(), f"{name}: its own input device still sends touches to everyone")


def reads_touchscreens(report: Report, emulator: Emulator, service: DriverService) -> None:
    """One that is unplugged or silent while it is being read does no harm, and is read once it is back"""
    for fault in ("unplugs-after-packets 3", "stalls", "dies-after-packets 2"):
        emulator.tell("unplug ir")
        service.stop()
        service.forget()
        service.start()
        emulator.tell(f"fault ir {fault}")
        emulator.tell("plug ir")
        if fault.startswith("unplugs"):
            emulator.tell("await ir unplugged 60000")
        else:
            wait_for_pointer(emulator, "ir", pointer_of("ir"))
            emulator.tell("unplug ir")
        emulator.tell("fault ir none")
        emulator.bring(KINDS)
        stored = emulator.stored("ir")["CalibParams"]
        eventually(lambda: calibration_used(service, "ir") == stored, f"the calibration of one that had {fault}", 60)


def serves_many(report: Report, emulator: Emulator, service: DriverService) -> None:
    """16 touchscreens have an instance and a pointer each, and nothing is left of them afterwards"""
    emulator.bring({f"wall{number}": "infrared" for number in range(len(KINDS), MANY)})
    eventually(lambda: len(service.instances()) == len(pointers()) == MANY, f"{MANY} instances and pointers", 60)
    emulator.unplug_all()
    eventually(lambda: not service.instances() and not pointers(), "the end of all instances and pointers", 60)
