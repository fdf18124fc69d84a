# SPDX-License-Identifier: Apache-2.0
"""The Debian package: what is in it, and its life on a machine of its own.

The machine is a view of this one: what the test changes lies in an overlay that nobody else sees
and that is gone with the test. Only root can make one; others check the package's contents."""

import os
import pathlib
import re
import socket
import subprocess
import sys
import tempfile
import threading
import time
import unittest

SOURCE_DIR = pathlib.Path(__file__).resolve().parents[2]
BUILD_DIR = pathlib.Path(os.environ["KVFILTER_BUILD_DIR"])
NAME = "printer-driver-kvfilter"
SKIPPED = 77  # the exit status that ctest takes as "skipped"
IN_NAMESPACE = "KVFILTER_TEST_IN_NAMESPACE"


def run(*command, **settings):
    done = subprocess.run([str(word) for word in command], text=True, stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=120,
                          **settings)
    if done.returncode != 0:
        raise AssertionError(f"{command}: {done.stdout}")
    return done.stdout


def build_package():
    folder = pathlib.Path(unittest.enterModuleContext(tempfile.TemporaryDirectory()))
    # Whatever the umask, the package's folders are open to all.
    run("cpack", "--config", BUILD_DIR / "CPackConfig.cmake", "-B", folder, umask=0o077,
        env={**os.environ, "SOURCE_DATE_EPOCH": "1795262400"})
    return next(folder.glob("*.deb"))


def setUpModule():
    global package
    package = build_package()


def readme_commands():
    """The commands of the README for a queue: to set it up, to print, to try, to look."""
    text = (SOURCE_DIR / "README.md").read_text(encoding="utf-8")
    commands = re.findall(r"^    ((?:lpadmin|lp|PPD=\S+|cupsfilter|kvjobinfo) .*)$", text, re.MULTILINE)
    if [command.split()[0] for command in commands] != [
            "lpadmin", "lp", "PPD=/etc/cups/ppd/office.ppd", "cupsfilter", "kvjobinfo"]:
        raise AssertionError(commands)
    return commands[0], commands[1], "\n".join(commands[2:4]), commands[4]


def later_package(package, folder):
    """The next version of a package: a PPD has a finisher's tray more."""
    run("dpkg-deb", "-R", package, folder)
    control = folder / "DEBIAN/control"
    control.write_text(re.sub(r"^(Version: .*)$", r"\1.1", control.read_text(), flags=re.M))
    paper = folder / "usr/share/cups/ppdc/korvell/office-paper.defs"
    tray = 'Choice "Finisher/'
    new = 'Choice "Roof/Roof Tray" "<</OutputType(Roof)>>setpagedevice"\n  '
    paper.write_text(paper.read_text().replace(tray, new + tray))
    updater = folder / f"usr/share/cups/ppd-updaters/{NAME}.ppd-updater"
    os.utime(updater, (time.time() + 60, time.time() + 60))  # cups compares whole seconds
    return run("dpkg-deb", "--root-owner-group", "-b", folder, folder.parent).split("'")[-2]


class ContentsTest(unittest.TestCase):
    def test_lintian_finds_no_error_and_no_warning(self):
        self.assertRegex(package.name, rf"^{NAME}_\d+\.\d+\.\d+-1_\w+\.deb$")
        found = run("lintian", "--allow-root", "--no-cfg", "--fail-on", "error,warning", package)
        self.assertEqual(found, "")

    def test_is_the_same_whenever_it_is_built(self):
        time.sleep(1.1)  # files carry whole seconds
        self.assertEqual(build_package().read_bytes(), package.read_bytes())

    def test_version_is_the_same_everywhere(self):
        version = run(BUILD_DIR / "kvfilter", "--version").split()
        self.assertEqual(version[0], "kvfilter")
        changelog = (SOURCE_DIR / "packaging/changelog").read_text()
        self.assertTrue(changelog.startswith(f"{NAME} ({version[1]}-1) "), changelog[:60])
        self.assertIn(f"\n## {version[1]}\n", (SOURCE_DIR / "CHANGELOG.md").read_text())
        self.assertIn(f'"kvfilter {version[1]}"', (BUILD_DIR / "docs/kvfilter.8").read_text())

    def test_metadata_are_valid(self):
        run("appstreamcli", "validate", "--no-net",
            BUILD_DIR / "packaging/org.kvfilter.driver.metainfo.xml")


class Machine:
    """This machine, seen through an overlay on `folder`, which stands in a mount namespace of the
    process's own: the mounts, and all that was written to them, end with the process. Nobody may
    remove `folder` with its contents before."""

    def __init__(self, folder):
        self._folder = folder
        self._root = folder / "root"
        run("mount", "-t", "tmpfs", "tmpfs", folder)
        for name in ("upper", "work", "root"):
            (folder / name).mkdir()
        run("mount", "-t", "overlay", "overlay", "-o",
            f"lowerdir=/,upperdir={folder}/upper,workdir={folder}/work", self._root)
        run("mount", "-t", "proc", "proc", self._root / "proc")
        for name in ("dev", "run", "tmp"):  # nothing of the machine below shines through
            run("mount", "-t", "tmpfs", "-o", "mode=755", "tmpfs", self._root / name)
        for name, major, minor in (("null", 1, 3), ("zero", 1, 5), ("random", 1, 8),
                                   ("urandom", 1, 9)):
            run("mknod", "-m", "666", self._root / "dev" / name, "c", major, minor)
        (self._root / "run/cups").mkdir()

    def run(self, *command):
        return run("chroot", self._root, *command,
                   env={"PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "LC_ALL": "C", "HOME": "/root",
                        "DEBIAN_FRONTEND": "noninteractive"})

    def put(self, path):
        """A file of the test's, and where the machine has it."""
        (self._root / "root" / path.name).write_bytes(path.read_bytes())
        return f"/root/{path.name}"

    def read(self, path):
        return (self._root / path[1:]).read_text(errors="replace")

    def start_scheduler(self):
        configuration = self._root / "etc/cups/cupsd.conf"
        text = re.sub(r"^(Listen localhost|Port).*$", "", configuration.read_text(), flags=re.M)
        configuration.write_text(text)
        self.run("cupsd")
        deadline = time.monotonic() + 30
        while "running" not in self.run("sh", "-c", "lpstat -r || :"):
            if time.monotonic() > deadline:
                raise TimeoutError(self.read("/var/log/cups/error_log"))
            time.sleep(0.1)

    def changed(self):
        """All that lies on the machine and not on the one below it."""
        upper = self._folder / "upper"
        return {f"/{path.relative_to(upper)}" for path in upper.rglob("*") if path.is_file()}


class Printer:
    def __init__(self):
        self._listener = socket.create_server(("127.0.0.1", 0))
        self._listener.settimeout(60)
        self.uri = f"socket://127.0.0.1:{self._listener.getsockname()[1]}/?snmp=false"
        self.job = bytearray()
        self._thread = threading.Thread(target=self._receive, daemon=True)
        self._thread.start()

    def _receive(self):
        connection, _ = self._listener.accept()
        with self._listener, connection:
            while data := connection.recv(1 << 16):
                self.job += data

    def received(self):
        self._thread.join(60)
        return bytes(self.job)


@unittest.skipUnless(os.environ.get(IN_NAMESPACE),
                     "only root, and not in every container, can make a machine of its own")
class LifeTest(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.machine = Machine(pathlib.Path(os.environ[IN_NAMESPACE]))
        self.machine.run("dpkg", "--purge", NAME)  # should the machine below have it

    def test_from_installation_to_removal(self):
        machine = self.machine
        machine.run("dpkg", "-i", machine.put(package))
        machine.start_scheduler()

        models = machine.run("lpinfo", "--include-schemes", "drv", "-m")
        self.assertEqual(len(re.findall("^drv:///korvell.drv/", models, re.M)), 3)
        printer = Printer()
        pdf = self.folder / "report.pdf"
        run("ps2pdf", SOURCE_DIR / "samples/report.ps", pdf)
        machine.put(pdf)
        set_up, print_it, try_it, _ = readme_commands()
        machine.run("sh", "-c", set_up.replace("socket://printer.example.com", f"'{printer.uri}'"))
        machine.run("lpadmin", "-p", "office", "-o", "PageSize=Letter")
        self.assertIn("KVWatermark/Watermark: *None Draft",
                      machine.run("lpoptions", "-p", "office", "-l"))
        machine.run("sh", "-c", f"cd /root; {print_it}")
        job = printer.received()
        self.assertTrue(job.startswith(b"\x1b%-12345X@PJL JOB MODE=PRINTER\r\n"), job[:200])
        for expected in (b"\n@PJL COMMENT KVJOBINFO STAPLE=ON\n", b"/StapleLocation(LeftDouble)",
                         b"(DRAFT)"):
            self.assertTrue(expected in job, expected)

        machine.run("sh", "-ec", f"cd /root\n{try_it}")
        self.assertIn("@PJL COMMENT KVJOBINFO STAPLE=ON", machine.read("/root/report.job"))

        # An upgrade gives the queue its new PPD and leaves what the administrator chose.
        later = pathlib.Path(later_package(package, self.folder / "later"))
        self.assertNotIn("Roof", machine.read("/etc/cups/ppd/office.ppd"))
        machine.run("dpkg", "-i", machine.put(later))
        self.assertIn("*OutputBin Roof/Roof Tray: ", machine.read("/etc/cups/ppd/office.ppd"))
        self.assertIn("*DefaultPageSize: Letter\n", machine.read("/etc/cups/ppd/office.ppd"))

        # Removing it leaves nothing of its own.
        machine.run("lpadmin", "-x", "office")
        machine.run("dpkg", "--purge", NAME)
        left = [path for path in machine.changed() if re.search("kvfilter|korvell", path, re.I)]
        self.assertEqual([path for path in left if not path.startswith("/root/")], [])


UNSHARE = ["unshare", "--mount", "--pid", "--fork", "--kill-child", "--mount-proc"]
TRY_OVERLAY = """mount -t tmpfs tmpfs "$0" && cd "$0" && mkdir upper work root &&
mount -t overlay overlay -o "lowerdir=/,upperdir=$0/upper,workdir=$0/work" root"""


def can_make_a_machine(folder):
    return os.getuid() == 0 and subprocess.run([*UNSHARE, "sh", "-c", TRY_OVERLAY, folder],
                                               capture_output=True).returncode == 0


def main():
    folder = tempfile.mkdtemp()
    try:
        if IN_NAMESPACE not in os.environ and can_make_a_machine(folder):
            done = subprocess.run([*UNSHARE, sys.executable, "-B", __file__, *sys.argv[1:]],
                                  env={**os.environ, IN_NAMESPACE: folder})
            sys.exit(done.returncode)
    finally:
        os.rmdir(folder)  # empty, the mounts having been the other process's
    program = unittest.main(exit=False)
    skipped = program.result.wasSuccessful() and program.result.skipped
    sys.exit(SKIPPED if skipped else not program.result.wasSuccessful())


if __name__ == "__main__":
    main()
