"""The driver service between the kernel's touchscreens and its pointers, with no desktop around."""

import pathlib
import re
import statistics
import subprocess

from . import evdev, system
from .checks import Report, eventually, expect, expect_equal
from .driver_service import DriverService, location_of
from .emulator import Emulator
from .kernel import KINDS, PRODUCTS, UNDISTORTED, VENDOR
from .tracing import FrameTrace, delays

ROUNDS = 3
SWIPE = "swipe ir 0.1 0.2 0.9 0.8 2000 8"
MANY = 16


def raw_node(name: str) -> evdev.InputNode:
    """The kernel's own input device of a touchscreen."""
    return eventually(lambda: evdev.nodes(VENDOR, PRODUCTS[name]), f"an input device of {name}")[0]


def pointers() -> dict[str, evdev.InputNode]:
    """What the service makes of touchscreens, by name."""
    return {node.name: node for node in evdev.nodes(VENDOR, bus=evdev.BUS_VIRTUAL)}


def pointer_of(name: str) -> evdev.InputNode:
    called = f"Touchscreen {location_of(raw_node(name)):08x} pointer"
    return eventually(lambda: pointers().get(called), f"{called!r}")


def wait_for_pointer(emulator: Emulator, name: str, pointer: evdev.InputNode) -> None:
    """Touches until the pointer follows: the service first reads what a touchscreen holds, and tells nobody when it has."""
    def follows() -> bool:
        emulator.tell(f"tap {name} 0.9 0.9 150")
        emulator.tell("wait 200")
        return pointer.has_events()
    eventually(follows, f"touches of {name} at its pointer", 60)


def instance_of(service: DriverService, name: str):
    return service.instance(location_of(raw_node(name)))


def takes_touchscreens_over(report: Report, emulator: Emulator, service: DriverService) -> None:
    """The service takes every touchscreen over, and a pointer follows its touches"""
    emulator.bring(KINDS, *UNDISTORTED)
    service.start()
    for name in KINDS:
        raw = raw_node(name)
        instance_of(service, name)
        pointer = pointer_of(name)
        for code in (evdev.ABS_X, evdev.ABS_Y):
            expect_equal(pointer.axis(code), evdev.Axis(0, 0, 32767), f"{name}, axis {code} of the pointer")
        wait_for_pointer(emulator, name, pointer)
        raw.axis(evdev.ABS_X)  # opens it, so that it would be told
        emulator.tell(f"tap {name} 0.25 0.75 150")
        events = pointer.events(evdev.frame_after(evdev.EV_ABS, evdev.ABS_X, 8192))
        expect_equal(evdev.values(events, evdev.EV_ABS, evdev.ABS_Y)[-1], 24575, f"{name}, y of the pointer")
        events = pointer.events(evdev.frame_after(evdev.EV_KEY, evdev.BTN_LEFT, 0))
        expect_equal(evdev.values(events, evdev.EV_KEY, evdev.BTN_LEFT), [1, 0], f"{name}, left button")
        expect(not raw.has_events(), f"{name}: its own input device still tells everyone of touches")
        raw.close()
        pointer.close()


def _run_time_ns(process_id: int) -> int:
    return int(pathlib.Path(f"/proc/{process_id}/schedstat").read_text().split()[0])


def _measured(emulator: Emulator, trace: FrameTrace, process_id: int, sink: evdev.InputNode) -> tuple[list, float]:
    """Delays from the touchscreen to the pointer, and processor time per 1,000 frames in ms."""
    source = raw_node("ir")
    wait_for_pointer(emulator, "ir", sink)  # which has it open, too: the kernel passes frames on to open nodes only
    before = _run_time_ns(process_id)
    trace.start()
    emulator.tell(SWIPE)
    system.settle()
    frames = trace.stop()
    spent_ms = (_run_time_ns(process_id) - before) / 1e6
    sink.close()
    found = delays(frames, source.path.name, sink.path.name)
    count = sum(1 for node, _ in frames if node == source.path.name)
    expect(len(found) > 100, f"only {len(found)} of {count} frames came through")
    return found, spent_ms / count * 1000


def _percentile(times: list[float], percent: int) -> float:
    return sorted(times)[len(times) * percent // 100]


def _told(times: list[float]) -> str:
    told = ", ".join(f"{name} {_percentile(times, percent) * 1e6:.0f} us"
                     for name, percent in (("fastest tenth", 10), ("median", 50), ("99th percentile", 99)))
    return f"{told} of {len(times)} frames"


def costs_little_time(report: Report, emulator: Emulator, service: DriverService, programs: pathlib.Path) -> None:
    """From touch to pointer: the service beside a bare copying loop, in turns"""
    trace = FrameTrace()
    times = {"service": [], "bare copy": []}
    costs = {"service": [], "bare copy": []}
    for _ in range(ROUNDS):
        found, cost = _measured(emulator, trace, service.process.pid, pointer_of("ir"))
        times["service"] += found
        costs["service"].append(cost)
        service.stop()
        copy = subprocess.Popen([programs / "grab_and_copy", raw_node("ir").path])
        sink = eventually(lambda: [node for node in evdev.nodes(0, bus=evdev.BUS_VIRTUAL) if node.name == "Bare copy"],
                          "the copy's pointer")[0]
        found, cost = _measured(emulator, trace, copy.pid, sink)
        times["bare copy"] += found
        costs["bare copy"].append(cost)
        copy.kill()
        copy.wait()
        service.start()
    for name, found in times.items():
        report.note(f"{name}: {_told(found)}; processor time per 1,000 frames {statistics.median(costs[name]):.0f} ms")
    ratios = [_percentile(times["service"], percent) / _percentile(times["bare copy"], percent) for percent in (10, 50)]
    report.note(f"the service takes {ratios[0]:.2f} times the bare copy's time in the fastest tenth, where nothing else on a "
                f"busy machine interferes, and {ratios[1]:.2f} times in the median (all emulated, some 20 times slower)")


def _memory(process_id: int) -> dict[str, int]:
    status = pathlib.Path(f"/proc/{process_id}/status").read_text()
    return {name: int(size) for name, size in re.findall(r"(VmRSS|VmHWM|RssAnon|Threads):\s+(\d+)", status)}


def _told_memory(process_id: int) -> str:
    eventually(lambda: _memory(process_id)["Threads"] == 1, "the end of all reading of touchscreens", 60)
    memory = _memory(process_id)
    return f"{memory['VmRSS']} kB resident, {memory['RssAnon']} kB of them its own; at its most {memory['VmHWM']} kB"


def takes_little_memory(report: Report, emulator: Emulator, service: DriverService) -> None:
    """Memory with 1 and with 16 touchscreens, and nothing left of them afterwards"""
    emulator.unplug_all()
    eventually(lambda: not service.instances(), "no instance")
    service.stop()
    service.start()
    emulator.bring({"ir": KINDS["ir"]})
    eventually(lambda: len(pointers()) == 1, "one pointer")
    report.note(f"1 touchscreen: {_told_memory(service.process.pid)}")
    emulator.bring({f"wall{number}": "infrared" for number in range(1, MANY)})
    eventually(lambda: len(service.instances()) == MANY and len(pointers()) == MANY, f"{MANY} instances and pointers", 60)
    report.note(f"{MANY} touchscreens: {_told_memory(service.process.pid)}")
    emulator.unplug_all()
    eventually(lambda: not service.instances() and not pointers(), "the end of all instances and pointers", 60)
