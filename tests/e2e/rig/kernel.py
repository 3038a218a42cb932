"""Debian's own kernel and modules, fetched and unpacked into a cache directory; nothing is installed."""

import fcntl
import lzma
import pathlib
import re
import shutil
import subprocess

from .skip import CannotRun

META_PACKAGE = "linux-image-amd64"
XZ_MAGIC = b"\xfd7zXZ\x00"
# Large groups of drivers for hardware that the emulated machine does not have.
LEFT_OUT = (
    "drivers/net", "drivers/scsi", "drivers/infiniband", "drivers/iio", "drivers/staging", "drivers/ata",
    "drivers/md", "drivers/comedi", "drivers/mtd", "drivers/media/[!c]*", "drivers/hwmon", "sound",
    "drivers/gpu/drm/amd", "drivers/gpu/drm/i915", "drivers/gpu/drm/nouveau", "drivers/gpu/drm/radeon",
    "net/netfilter", "net/bluetooth", "net/sunrpc", "fs/btrfs", "fs/xfs", "fs/nfs", "fs/ocfs2", "fs/smb",
)


class Kernel:
    """An unpacked kernel: `image` is the uncompressed ELF file, `modules` the folder of all versions."""

    def __init__(self, root: pathlib.Path):
        self.root = root
        self.image = root / "vmlinux"
        self.modules = root / "lib" / "modules"
        self.version = next(self.modules.iterdir()).name

    def module(self, name: str) -> pathlib.Path:
        """The file of one module. Raises CannotRun when the package does not have it."""
        folder = self.modules / self.version / "kernel"
        for found in folder.rglob(f"{name}.ko*"):
            return found
        raise CannotRun(f"kernel {self.version} has no module {name}")


def _run(*command, **options) -> str:
    try:
        return subprocess.run(command, check=True, capture_output=True, text=True, **options).stdout
    except FileNotFoundError:
        raise CannotRun(f"{command[0]} is not installed") from None
    except subprocess.CalledProcessError as error:
        detail = (error.stderr or error.stdout).strip().splitlines()
        raise CannotRun(f"{' '.join(map(str, command))}: {detail[-1] if detail else 'failed'}") from None


def _uncompressed(boot_image: bytes) -> bytes:
    """The ELF image inside a compressed one. QEMU starts it without the slow unpacking inside the guest."""
    start = boot_image.find(XZ_MAGIC)
    if start < 0:
        raise CannotRun("the kernel image is not compressed with xz")
    return lzma.LZMADecompressor(lzma.FORMAT_XZ).decompress(boot_image[start:])


def _fetch_package(folder: pathlib.Path) -> pathlib.Path:
    package = re.search(r"Depends: (linux-image-\S+)", _run("apt-cache", "depends", META_PACKAGE))
    if not package:
        raise CannotRun(f"the package list has no {META_PACKAGE}")
    _run("apt-get", "-o", "APT::Sandbox::User=root", "download", package.group(1), cwd=folder)
    return next(folder.glob("linux-image-*.deb"))


def _unpack(package: pathlib.Path, target: pathlib.Path) -> None:
    exclusions = [f"--exclude=./lib/modules/*/kernel/{folder}" for folder in LEFT_OUT]
    with subprocess.Popen(["dpkg-deb", "--fsys-tarfile", package], stdout=subprocess.PIPE) as archive:
        _run("tar", "-x", "-C", str(target), "--wildcards", *exclusions, "./boot/vmlinuz-*", "./lib/modules",
             stdin=archive.stdout)
        archive.stdout.close()
    if archive.returncode:
        raise CannotRun(f"{package.name} cannot be unpacked")


def prepare(cache: pathlib.Path) -> Kernel:
    """The kernel in `cache`, fetched first when it is not there yet (some 70 MB, once).

    Raises CannotRun when it cannot be had. Safe when two runs prepare at once: the second waits.
    """
    cache.mkdir(parents=True, exist_ok=True)
    with open(cache / "lock", "w") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        ready = cache / "kernel"
        if not ready.exists():
            unfinished = cache / "kernel.unfinished"
            shutil.rmtree(unfinished, ignore_errors=True)
            unfinished.mkdir()
            package = _fetch_package(unfinished)
            _unpack(package, unfinished)
            package.unlink()
            boot_image = next((unfinished / "boot").glob("vmlinuz-*"))
            (unfinished / "vmlinux").write_bytes(_uncompressed(boot_image.read_bytes()))
            version = boot_image.name.removeprefix("vmlinuz-")
            shutil.rmtree(unfinished / "boot")
            _run(shutil.which("depmod", path="/usr/sbin:/sbin:/usr/bin") or "depmod", "-b", str(unfinished), version)
            unfinished.rename(ready)
    return Kernel(ready)
