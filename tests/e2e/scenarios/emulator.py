"""The emulator's command line, spoken over its socket."""

import pathlib
import socket
import subprocess

from .checks import Failed, eventually

KINDS = {"ir": "infrared", "opt": "optical", "cfg": "configuration-only"}
UNDISTORTED = ("offset=0,0", "scale=1,1", "skew=0,0", "barrel=0", "noise=0")


class Emulator:
    """A running touchscreen-emulator. Every command waits for its answer."""

    def __init__(self, program: pathlib.Path, log: pathlib.Path):
        self.path = "/run/touchscreen-emulator.socket"
        pathlib.Path(self.path).unlink(missing_ok=True)
        self.process = subprocess.Popen([program, "--socket", self.path], stdin=subprocess.DEVNULL,
                                        stdout=subprocess.DEVNULL, stderr=log.open("w"))
        self.connection = socket.socket(socket.AF_UNIX)
        # A socket that is bound refuses connections until it listens.
        eventually(lambda: self.connection.connect_ex(self.path) == 0, "the emulator's socket")
        self.lines = self.connection.makefile("rw")

    def tell(self, command: str) -> str:
        """Carries one command out and returns its answer."""
        self.lines.write(command + "\n")
        self.lines.flush()
        verdict, _, text = self.lines.readline().strip().partition(" ")
        if verdict != "ok":
            raise Failed(f"{command!r} is answered with {verdict} {text}")
        return text

    def plug(self, name: str, *what: str) -> int:
        """Plugs a touchscreen in and waits until the kernel has set it up. Returns its port."""
        port = int(self.tell(" ".join(("plug", name) + what)).split()[1])
        self.tell(f"await {name} configured 60000")
        return port

    def bring(self, kinds: dict[str, str], *options: str) -> None:
        """Has every touchscreen of `kinds` (name to kind) plugged in and without a fault, new ones with `options`."""
        there = dict(entry.split("@") for entry in self.tell("list").split())
        for name, kind in kinds.items():
            if name not in there:
                self.plug(name, kind, *options)
            elif there[name] == "-":
                self.plug(name)
            self.tell(f"fault {name} none")

    def unplug_all(self) -> None:
        for entry in self.tell("list").split():
            name, port = entry.split("@")
            if port != "-":
                self.tell(f"unplug {name}")

    def stored(self, name: str) -> dict[str, str]:
        """What the touchscreen holds, in hexadecimal by block."""
        return dict(pair.split("=", 1) for pair in self.tell(f"dump {name}").split())
