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
import tempfile
import threading
import time

HERE = pathlib.Path(__file__).resolve().parent
KERNEL = HERE.parents[2] / "build" / "e2e-cache" / "kernel"
# The HPET, since a kernel that starts on a busy machine measures its TSC wrongly: its seconds would be anything.
KERNEL_LINE = ("console=ttyS0 quiet loglevel=4 panic=-1 mitigations=off nokaslr tsc=unstable clocksource=hpet "
               "random.trust_cpu=on net.ifnames=0")
# What the initial file system needs to reach the host's own one. In loading order: each needs those before it.
MODULES = ("virtio_ring", "virtio", "virtio_pci_modern_dev", "virtio_pci_legacy_dev", "virtio_pci", "virtio_mmio",
           "9pnet", "9pnet_virtio", "netfs", "fscache", "9p", "overlay")


class CannotRun(Exception):
    """The rig cannot run here. Reported as a skipped test with this reason, never as a passed one."""


@dataclasses.dataclass
class Outcome:
    """What a run brought back. `status` is None when the guest did not finish in time or died."""

    status: int | None
    output: str
    console: str
    seconds: float


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
            time.sleep(0.02)  # qemu makes its sockets while it starts, without a sign
    raise CannotRun(f"qemu does not start: {process.stderr.read() if process.poll() is not None else 'no socket'}")


def _installed(program: str) -> str:
    found = shutil.which(program)
    if not found:
        raise CannotRun(f"{program} is not installed")
    return found


def _initial_file_system(top: pathlib.Path) -> pathlib.Path:
    """Packs a static shell and the modules that reach the host's file system."""
    busybox = _installed("busybox")
    for folder in ("bin", "modules", "proc", "sys", "dev", "host", "share", "upper", "root"):
        (top / folder).mkdir()
    shutil.copy(busybox, top / "bin")
    shutil.copy(HERE / "init", top)
    (top / "init").chmod(0o755)
    (top / "modules/order").write_text("\n".join(MODULES) + "\n")
    for module in MODULES:
        shutil.copy(next(KERNEL.rglob(f"{module}.ko")), top / "modules")
    names = "\n".join(str(path.relative_to(top)) for path in top.rglob("*"))
    archive = top / "archive"
    with archive.open("wb") as packed:
        subprocess.run([busybox, "cpio", "-o", "-H", "newc"], cwd=top, input=names.encode(), stdout=packed,
                       stderr=subprocess.DEVNULL, check=True)
    return archive


def _qemu_command(archive: pathlib.Path, share: pathlib.Path) -> list[str]:
    return [
        _installed("qemu-system-x86_64"), "-M", "q35,i8042=off", "-accel", "tcg,thread=multi,tb-size=512", "-cpu", "qemu64",
        "-smp", "2", "-m", "1536", "-kernel", str(KERNEL / "vmlinux"), "-initrd", str(archive), "-append", KERNEL_LINE,
        "-fsdev", "local,id=r,path=/,security_model=none,readonly=on,multidevs=remap",
        "-device", "virtio-9p-pci,fsdev=r,mount_tag=hostroot",
        "-fsdev", f"local,id=s,path={share},security_model=none",
        "-device", "virtio-9p-pci,fsdev=s,mount_tag=share",
        "-nodefaults", "-no-user-config", "-no-reboot", "-display", "none", "-device", "bochs-display",
        "-serial", f"file:{share}/console",
        "-chardev", f"socket,id=pictures,path={share}/pictures.socket,server=on,wait=off",
        "-serial", "chardev:pictures", "-qmp", f"unix:{share}/monitor.socket,server=on,wait=off",
    ]


def run(command: list, *, share: pathlib.Path, folder: pathlib.Path, timeout_s: float) -> Outcome:
    """Boots, runs `command` as root inside with `folder` as its working directory, and switches off.

    `share`, /mnt/share inside, is emptied first. Blocks for the whole run, for at most `timeout_s`. Raises CannotRun
    when the machine lacks something that the rig needs.
    """
    if not KERNEL.exists():
        raise CannotRun("there is no kernel; tools/fetch-kernel fetches one")
    shutil.rmtree(share, ignore_errors=True)
    guest = share / "guest"
    guest.mkdir(parents=True)
    shutil.copy(HERE / "main", guest)
    (guest / "command").write_text(f"mount --bind {shlex.quote(str(KERNEL / 'lib/modules'))} /lib/modules\n"
                                   f"cd {shlex.quote(str(folder))} || exit 1\n"
                                   f"exec {shlex.join(map(str, command))}\n")
    started = time.monotonic()
    with tempfile.TemporaryDirectory() as top:
        process = subprocess.Popen(_qemu_command(_initial_file_system(pathlib.Path(top)), share), text=True,
                                   stdin=subprocess.DEVNULL, stderr=subprocess.PIPE, start_new_session=True)
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

    def left(name: str) -> str:
        file = share / name
        return file.read_text(errors="replace") if file.exists() else ""

    status = left("status").strip()
    return Outcome(int(status) if status else None, left("output"), left("console"), time.monotonic() - started)
