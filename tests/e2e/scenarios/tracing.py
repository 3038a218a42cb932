"""When frames come out of the kernel's input devices, by the kernel's own record."""

import pathlib
import re
import subprocess

TRACING = pathlib.Path("/sys/kernel/tracing")
# Called once for every frame of an input device that somebody has open.
PROBE = "p:frame evdev:evdev_events node=+0(+16(%di)):string"
HELD_BACK = 10
_LINE = re.compile(r"\s(\d+\.\d+): frame: .*node=\"(\w+)\"")


class FrameTrace:
    """Records every frame of every evdev node between start() and stop()."""

    def __init__(self):
        if not (TRACING / "trace").exists():
            subprocess.run(["mount", "-t", "tracefs", "tracefs", TRACING], check=True)
        (TRACING / "trace_clock").write_text("mono")
        (TRACING / "buffer_size_kb").write_text("4096")
        if "frame" not in (TRACING / "kprobe_events").read_text():
            (TRACING / "kprobe_events").write_text(PROBE)

    def start(self) -> None:
        (TRACING / "trace").write_text("")
        (TRACING / "events/kprobes/frame/enable").write_text("1")

    def stop(self) -> list[tuple[str, float]]:
        """The frames since start(): node name ("event3") and time in seconds."""
        (TRACING / "events/kprobes/frame/enable").write_text("0")
        return [(found[2], float(found[1])) for found in map(_LINE.search, (TRACING / "trace").open()) if found]


def delays(frames: list[tuple[str, float]], source: str, sink: str) -> list[float]:
    """Seconds from each frame of `source` to the frame of `sink` that came of it.

    Both follow each other one to one, but for the first frames of a touch, of which the service may hold some back;
    so they are paired from the end. What lies before a frame that was lost on the way is left out.
    """
    came, went = ([time for node, time in frames if node == name] for name in (source, sink))
    both = min(len(came), len(went))
    found = [out - into for into, out in zip(came[-both:], went[-both:])] if both else []
    lost = max((index for index, delay in enumerate(found) if delay < 0), default=-1)
    return found[max(lost + 1, HELD_BACK):]
