"""The initial file system: a static shell and the modules that reach the host's own file system."""

import pathlib
import shutil
import stat

from .kernel import Kernel
from .skip import CannotRun

# In loading order: each needs those before it.
MODULES = ("virtio_ring", "virtio", "virtio_pci_modern_dev", "virtio_pci_legacy_dev", "virtio_pci", "virtio_mmio",
           "9pnet", "9pnet_virtio", "netfs", "fscache", "9p", "overlay")


class _Archive:
    """A cpio archive in the "newc" format, the one that the kernel unpacks."""

    def __init__(self):
        self.data = bytearray()
        self.entries = 0

    def _align(self):
        self.data.extend(bytes(-len(self.data) % 4))

    def add(self, name: str, mode: int, content: bytes = b""):
        self.entries += 1
        encoded = name.encode() + b"\0"
        fields = (self.entries, mode, 0, 0, 1, 0, len(content), 0, 0, 0, 0, len(encoded), 0)
        self.data.extend(b"070701" + b"".join(b"%08x" % field for field in fields) + encoded)
        self._align()
        self.data.extend(content)
        self._align()

    def folder(self, name: str):
        self.add(name, stat.S_IFDIR | 0o755)

    def finished(self) -> bytes:
        self.add("TRAILER!!!", 0)
        return bytes(self.data)


def build(kernel: Kernel, target: pathlib.Path) -> pathlib.Path:
    """Writes the archive to `target`. Raises CannotRun without a static busybox."""
    busybox = shutil.which("busybox")
    if not busybox:
        raise CannotRun("busybox is not installed")
    archive = _Archive()
    for folder in ("bin", "modules", "proc", "sys", "dev", "host", "share", "upper", "root"):
        archive.folder(folder)
    archive.add("bin/busybox", stat.S_IFREG | 0o755, pathlib.Path(busybox).read_bytes())
    for name in MODULES:
        archive.add(f"modules/{name}.ko", stat.S_IFREG | 0o644, kernel.module(name).read_bytes())
    archive.add("modules/order", stat.S_IFREG | 0o644, "\n".join(MODULES).encode() + b"\n")
    init = pathlib.Path(__file__).with_name("init").read_bytes()
    archive.add("init", stat.S_IFREG | 0o755, init)
    target.write_bytes(archive.finished())
    return target
