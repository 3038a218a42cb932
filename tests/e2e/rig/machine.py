"""One run of the emulated machine: a real kernel over the host's own file system, read-only, in seconds."""

import dataclasses
import json
import os
import pathlib
import shlex
import shutil
import signal
import socket
import subprocess
import threading
import time

from . import initrd, kernel
from .skip import CannotRun

# The HPET, since a kernel that starts on a busy machine measures its TSC wrongly: its seconds would be anything.
KERNEL_LINE = ("console=ttyS0 quiet loglevel=4 panic=-1 mitigations=off nokaslr tsc=unstable clocksource=hpet "
               "random.trust_cpu=on net.ifnames=0")


@dataclasses.dataclass
class Outcome:
    """What a run brought back. `status` is None when the guest did not finish in time or died."""

    status: int | None
    output: str
    console: str
    seconds: float
    share: pathlib.Path  # files that the guest left in /mnt/share


class _ScreenShots(threading.Thread):
    """Serves the guest's requests for pictures of its screen.

    The guest writes a file name and a line end to its second serial line; the picture is in its share when the
    same line comes back ("failed" when it could not be made).
    """

    def __init__(self, request: socket.socket, monitor: socket.socket, share: pathlib.Path):
        super().__init__(daemon=True)
        self.request, self.monitor, self.share = request.makefile("rw"), monitor.makefile("rw"), share

    def _execute(self, command: str, **arguments) -> bool:
        self.monitor.write(json.dumps({"execute": command, "arguments": arguments}) + "\n")
        self.monitor.flush()
        for line in self.monitor:
            answer = json.loads(line)
            if "return" in answer or "error" in answer:
                return "return" in answer
        return False

    def run(self):
        self.monitor.readline()  # the monitor's greeting
        self._execute("qmp_capabilities")
        for line in self.request:
            name = pathlib.PurePath(line.strip()).name
            if not name:
                continue
            made = self._execute("screendump", filename=str(self.share / name), format="png")
            self.request.write((name if made else "failed") + "\n")
            self.request.flush()


def _connected(path: pathlib.Path, process: subprocess.Popen) -> socket.socket:
    deadline = time.monotonic() + 20
    while process.poll() is None and time.monotonic() < deadline:
        connection = socket.socket(socket.AF_UNIX)
        try:
            connection.connect(str(path))
            return connection
        except OSError:
            connection.close()
            time.sleep(0.02)  # the emulator makes its sockets while it starts and tells nobody
    raise CannotRun(f"qemu does not start: {process.stderr.read() if process.poll() is not None else 'no socket'}")


def _qemu_command(image: pathlib.Path, first: pathlib.Path, share: pathlib.Path, memory_mb: int,
                  display: str | None, kernel_line: str) -> list[str]:
    qemu = shutil.which("qemu-system-x86_64")
    if not qemu:
        raise CannotRun("qemu-system-x86_64 is not installed")
    command = [
        qemu, "-M", "q35,i8042=off", "-accel", "tcg,thread=multi,tb-size=512", "-cpu", "qemu64", "-smp", "2",
        "-m", str(memory_mb), "-kernel", str(image), "-initrd", str(first),
        "-append", f"{KERNEL_LINE} {kernel_line}".strip(),
        "-fsdev", "local,id=r,path=/,security_model=none,readonly=on,multidevs=remap",
        "-device", "virtio-9p-pci,fsdev=r,mount_tag=hostroot",
        "-fsdev", f"local,id=s,path={share},security_model=none",
        "-device", "virtio-9p-pci,fsdev=s,mount_tag=share",
        "-nodefaults", "-no-user-config", "-no-reboot", "-display", "none",
        "-serial", f"file:{share}/console",
        "-chardev", f"socket,id=pictures,path={share}/pictures.socket,server=on,wait=off",
        "-serial", "chardev:pictures", "-qmp", f"unix:{share}/monitor.socket,server=on,wait=off",
    ]
    if display:
        command += ["-device", display]
    return command


def run(command: list[str], *, cache: pathlib.Path, share: pathlib.Path, folder: pathlib.Path,
        environment: dict[str, str] | None = None, timeout_s: float = 120, memory_mb: int = 1024,
        display: str | None = None, kernel_line: str = "") -> Outcome:
    """Boots, runs `command` as root inside with `folder` as its working directory, and switches off.

    `share` is emptied first. Blocks for the whole run, for at most `timeout_s` after the kernel has been
    prepared. Raises CannotRun when the machine lacks something that the rig needs.
    """
    linux = kernel.prepare(cache)
    first = initrd.build(linux, cache / f"initrd.{os.getpid()}")
    shutil.rmtree(share, ignore_errors=True)
    guest = share / "guest"
    guest.mkdir(parents=True)
    shutil.copy(pathlib.Path(__file__).with_name("main"), guest / "main")
    variables = {"GUEST_MODULES": str(linux.modules), "GUEST_FOLDER": str(folder), **(environment or {})}
    (guest / "environment").write_text("".join(f"export {k}={shlex.quote(v)}\n" for k, v in variables.items()))
    (guest / "command").write_text("exec " + shlex.join(command) + "\n")

    started = time.monotonic()
    process = subprocess.Popen(_qemu_command(linux.image, first, share, memory_mb, display, kernel_line),
                               stdin=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True,
                               start_new_session=True)
    try:
        _ScreenShots(_connected(share / "pictures.socket", process), _connected(share / "monitor.socket", process),
                     share).start()
        process.wait(timeout_s)
    except subprocess.TimeoutExpired:
        pass
    finally:
        if process.poll() is None:
            os.killpg(process.pid, signal.SIGKILL)
            process.wait()
        first.unlink(missing_ok=True)

    def left(name: str) -> str:
        file = share / name
        return file.read_text(errors="replace") if file.exists() else ""

    status = left("status").strip()
    return Outcome(int(status) if status else None, left("output"), left("console"),
                   time.monotonic() - started, share)
