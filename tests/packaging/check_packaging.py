#!/usr/bin/env python3
"""Has the packaging files judged by the programs that read them.

Usage: check_packaging.py PACKAGING_DIRECTORY DESKTOP_ENTRY TOUCHDRIVERD
"""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

PACKAGING, DESKTOP_ENTRY, TOUCHDRIVERD = (pathlib.Path(each).resolve() for each in sys.argv[1:4])
SERVICE = "com.VARNEXO.TouchDriver1"

# What a system bus says before any service adds to it.
BUS = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <listen>unix:path={socket}</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow user="*"/>
    <deny own="*"/>
    <deny send_type="method_call"/>
    <allow send_type="signal"/>
    <allow send_requested_reply="true" send_type="method_return"/>
    <allow send_requested_reply="true" send_type="error"/>
    <allow receive_type="method_call"/>
    <allow receive_type="method_return"/>
    <allow receive_type="error"/>
    <allow receive_type="signal"/>
    <allow send_destination="org.freedesktop.DBus"/>
  </policy>
  <include>{policy}</include>
</busconfig>
"""


def run(*command, **options):
    return subprocess.run(command, text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=60, **options)


class Validated(unittest.TestCase):
    def accepted(self, *command):
        result = run(*command)
        self.assertEqual(result.returncode, 0, result.stdout)

    def test_desktop_entry(self):
        self.accepted("desktop-file-validate", DESKTOP_ENTRY)

    def test_metainfo(self):
        self.accepted("appstreamcli", "validate", "--no-net", PACKAGING / "com.varnexo.touchpanel.metainfo.xml")

    def test_unit_is_sound_and_hardened(self):
        with tempfile.TemporaryDirectory() as directory:
            unit = pathlib.Path(directory) / "touchdriverd.service"
            lines = (PACKAGING / "touchdriverd.service").read_text().splitlines()
            lines = [f"ExecStart={TOUCHDRIVERD}" if line.startswith("ExecStart=") else line for line in lines]
            unit.write_text("\n".join(lines) + "\n")
            self.accepted("systemd-analyze", "verify", "--man=no", unit)
            # Exposure in tenths, of 100; a service with no hardening has 96.
            self.accepted("systemd-analyze", "security", "--offline=true", "--threshold=20", unit)


    @unittest.skipUnless(os.geteuid() == 0, "gives a directory to a group")
    def test_the_panels_directory_is_made(self):
        with tempfile.TemporaryDirectory() as root:
            # Users and groups are looked up below the root, too.
            (pathlib.Path(root) / "etc").mkdir()
            for each in ("passwd", "group"):
                (pathlib.Path(root) / "etc" / each).write_text(pathlib.Path("/etc", each).read_text())
            self.accepted("systemd-tmpfiles", "--create", f"--root={root}", PACKAGING / "touchpanel.tmpfiles")
            made = [each for each in pathlib.Path(root).rglob("*") if each.is_dir() and each.stat().st_mode & 0o2020]
            self.assertEqual(len(made), 1, made)


class Policy(unittest.TestCase):
    """The D-Bus policy on a bus of our own, which plays the system bus for the real service."""

    def setUp(self):
        self.directory = tempfile.TemporaryDirectory()
        self.addCleanup(self.directory.cleanup)
        os.chmod(self.directory.name, 0o755)
        here = pathlib.Path(self.directory.name)
        config = here / "bus.conf"
        config.write_text(BUS.format(socket=here / "socket", policy=PACKAGING / f"{SERVICE}.conf"))
        self.bus = subprocess.Popen(
            ["dbus-daemon", "--nofork", "--nopidfile", f"--config-file={config}", "--print-address"],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.addCleanup(self.end, self.bus)
        self.assertIn("unix:", self.bus.stdout.readline())
        self.environment = dict(os.environ, DBUS_SYSTEM_BUS_ADDRESS=f"unix:path={here}/socket")
        self.service = subprocess.Popen(
            [TOUCHDRIVERD, "--verbose", f"--state-directory={here}/state"],
            stderr=subprocess.PIPE, text=True, env=self.environment)
        self.addCleanup(self.end, self.service)
        self.told = ""
        while "Serving." not in self.told:
            line = self.service.stderr.readline()
            self.assertTrue(line, self.told)
            self.told += line

    @staticmethod
    def end(process):
        process.kill()
        process.wait()
        for stream in (process.stdout, process.stderr):
            if stream:
                stream.close()

    def call(self, user, path, method, *arguments):
        return run("setpriv", *user, "dbus-send", "--system", "--print-reply", "--reply-timeout=5000",
                   f"--dest={SERVICE}", path, f"{SERVICE}.{method}", *arguments, env=self.environment).stdout

    @unittest.skipIf(os.geteuid() == 0, "root may own the name")
    def test_nobody_but_root_may_take_the_name(self):
        self.assertIn("cannot be served", self.told)

    @unittest.skipUnless(os.geteuid() == 0, "needs two users")
    def test_everybody_looks_and_only_the_group_writes(self):
        root = "/com/VARNEXO/TouchDriver1"
        anyone = ("--reuid=65534", "--regid=65534", "--clear-groups")
        member = ("--reuid=65534", "--regid=65534", "--groups=plugdev")
        look = ("Registry.InstancesOf", "uint32:1", "string:VARNEXOTouchScreenDriver")
        write = ("Object.SetProperty", "string:configration", "variant:int32:1")
        for user in (anyone, member):
            self.assertIn("array", self.call(user, root, *look))
        self.assertIn("AccessDenied", self.call(anyone, root + "/objects/256", *write))
        self.assertIn("UnknownObject", self.call(member, root + "/objects/256", *write))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
