#!/usr/bin/env python3
"""Checks the packaging files by the programs that read them. Usage: check_packaging.py FOLDER DESKTOP_ENTRY TOUCHDRIVERD"""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

PACKAGING, DESKTOP_ENTRY, TOUCHDRIVERD = (pathlib.Path(each).resolve() for each in sys.argv[1:4])
SERVICE, ROOT = "com.VARNEXO.TouchDriver1", "/com/VARNEXO/TouchDriver1"

# A bus with the rules of a system bus.
BUS = """<busconfig>
  <listen>unix:path={socket}</listen>
  <policy context="default">
    <allow user="*"/>
    <deny own="*"/>
    <deny send_type="method_call"/>
    <allow send_type="signal"/>
    <allow send_requested_reply="true"/>
    <allow receive_sender="*"/>
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

    def test_desktop_entries(self):
        for entry in DESKTOP_ENTRY.parent.glob("*.desktop"):
            self.accepted("desktop-file-validate", entry)
            icon = re.search("^Icon=(.*)$", entry.read_text(), re.MULTILINE).group(1)
            self.assertTrue((DESKTOP_ENTRY.parent / "icons" / f"{icon}.svg").exists(), icon)

    def test_metainfo(self):
        self.accepted("appstreamcli", "validate", "--no-net", PACKAGING / "com.varnexo.touchpanel.metainfo.xml")

    def test_quirks(self):
        self.accepted("libinput", "quirks", "validate", "--data-dir", PACKAGING / "quirks")

    def test_unit_is_sound_and_hardened(self):
        with tempfile.TemporaryDirectory() as directory:
            unit = pathlib.Path(directory) / "touchdriverd.service"
            text = (PACKAGING / "touchdriverd.service").read_text()
            unit.write_text(re.sub("ExecStart=.*", f"ExecStart={TOUCHDRIVERD}", text))
            self.accepted("systemd-analyze", "verify", "--man=no", unit)
            # Exposure in tenths, of 100; a service with no hardening has 96.
            self.accepted("systemd-analyze", "security", "--offline=true", "--threshold=16", unit)

    def test_the_panels_directory_is_made_for_everybody_to_read_on_a_system_without_groups(self):
        with tempfile.TemporaryDirectory() as root:
            # Users and groups are looked up below the root, too.
            os.mkdir(f"{root}/etc")
            for each in ("passwd", "group"):
                pathlib.Path(f"{root}/etc/{each}").write_text("root:x:0:0::/root:/bin/sh\n" if each == "passwd" else "root:x:0:\n")
            self.accepted("systemd-tmpfiles", "--create", f"--root={root}", PACKAGING / "touchpanel.tmpfiles")
            line = next(each for each in (PACKAGING / "touchpanel.tmpfiles").read_text().splitlines() if each[0] == "d")
            self.assertEqual(pathlib.Path(root + line.split()[1]).stat().st_mode & 0o7777, 0o755)

    def test_polkit_action(self):
        self.accepted("xmllint", "--noout", "--nonet", "--dtdvalid", "/usr/share/polkit-1/policyconfig-1.dtd",
                      PACKAGING / "com.varnexo.touchdriver.policy")

    @unittest.skipIf(run("udevadm", "verify", "--help").returncode, "this udevadm verifies nothing")
    def test_udev_rules(self):
        self.accepted("udevadm", "verify", PACKAGING / "60-touchpanel.rules")


class Policy(unittest.TestCase):
    """The D-Bus policy on a bus of our own, which plays the system bus for the real service."""

    def setUp(self):
        here = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        here.chmod(0o755)
        (here / "bus.conf").write_text(BUS.format(socket=here / "socket", policy=PACKAGING / f"{SERVICE}.conf"))
        bus = self.started("dbus-daemon", "--nofork", f"--config-file={here / 'bus.conf'}", "--print-address")
        self.assertIn("unix:", bus.stdout.readline())
        self.environment = dict(os.environ, DBUS_SYSTEM_BUS_ADDRESS=f"unix:path={here}/socket")
        service = self.started(TOUCHDRIVERD, "--verbose", f"--state-directory={here}/state", env=self.environment)
        self.log = ""
        while "Serving." not in self.log:
            line = service.stdout.readline()
            self.assertTrue(line, self.log)
            self.log += line

    def started(self, *command, **options):
        process = subprocess.Popen(command, text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, **options)
        self.addCleanup(process.communicate)
        self.addCleanup(process.kill)
        return process

    def call(self, user, path, method, *arguments):
        return run("setpriv", *user, "gdbus", "call", "--system", "--timeout=5", f"--dest={SERVICE}",
                   f"--object-path={path}", f"--method={SERVICE}.{method}", *arguments, env=self.environment).stdout

    @unittest.skipIf(os.geteuid() == 0, "root may own the name")
    def test_nobody_but_root_may_take_the_name(self):
        self.assertIn("cannot be served", self.log)

    @unittest.skipUnless(os.geteuid() == 0, "needs two users")
    def test_without_polkit_everybody_looks_and_root_and_the_group_write(self):
        anyone = ("--reuid=65534", "--regid=65534", "--clear-groups")
        member = ("--reuid=65534", "--regid=65534", "--groups=plugdev")
        look = ("Registry.InstancesOf", "1", "VARNEXOTouchScreenDriver")
        write = ("Files.Write", "passwd", "{}")
        for user, answer in ((anyone, "NotPermitted"), (member, "Unsupported"), (("--reuid=0",), "Unsupported")):
            self.assertIn("ao", self.call(user, ROOT, *look))
            self.assertIn(f"Error.{answer}", self.call(user, ROOT, *write))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
