# SPDX-License-Identifier: Apache-2.0
"""What an installation puts where, staged in a temporary folder, and what CUPS makes of it."""

import os
import pathlib
import shutil
import stat
import subprocess
import sys
import tempfile
import unittest

SOURCE_DIR = pathlib.Path(__file__).resolve().parents[2]
BUILD_DIR = pathlib.Path(os.environ["KVFILTER_BUILD_DIR"])
MODELS = {f"drv:///korvell.drv/{name.lower()}.ppd Korvell {name}, 1.0"
          for name in ("KV1024P", "KV2024C", "KV4024X")}

sys.path.append(str(SOURCE_DIR / "tests/queue"))
import scheduler  # noqa: E402 (found by the line above)


def run(*command, **environment):
    done = subprocess.run(command, env={**os.environ, **environment}, text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    if done.returncode != 0:
        raise AssertionError(f"{command}: {done.stdout}")
    return done.stdout.strip()


def filter_path():
    return run("cups-config", "--serverbin") + "/filter/kvfilter"


def data_folder():
    return run("cups-config", "--datadir")


class InstallTest(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.root = self.folder / "root"

    def install(self, build=BUILD_DIR):
        run("cmake", "--install", build, "--prefix", "/usr", DESTDIR=str(self.root))

    def installed(self):
        return {f"/{path.relative_to(self.root)}" for path in self.root.rglob("*")
                if path.is_file()}

    def staged(self, path):
        return self.root / path[1:]

    def test_everything_goes_where_this_system_looks_for_it(self):
        self.install()
        parts = {f"{data_folder()}/ppdc/korvell/{path.name}"
                 for path in (SOURCE_DIR / "ppd/korvell").iterdir()}
        pages = {f"/usr/share/doc/kvfilter/{page}.md" for page in
                 ("job-format", "options", "ppd", "security", "troubleshooting")}
        self.assertEqual(self.installed(), parts | pages | {
            filter_path(), "/usr/bin/kvjobinfo", "/usr/share/man/man1/kvjobinfo.1",
            "/usr/share/bash-completion/completions/kvjobinfo", f"{data_folder()}/drv/korvell.drv",
            "/usr/share/man/man8/kvfilter.8",
            "/usr/share/metainfo/org.kvfilter.driver.metainfo.xml"})

        # The scheduler runs no filter that others than root may change.
        mode = self.staged(filter_path()).stat().st_mode
        self.assertEqual(stat.S_IMODE(mode), 0o755)

    def test_ppds_name_the_filter_that_is_there(self):
        self.install()
        # CUPS wants a filter to be root's, as it is where root installs.
        as_root = [] if os.getuid() == 0 else ["fakeroot"]
        ppds = sorted(pathlib.Path(os.environ["KVFILTER_PPD_DIR"]).glob("*.ppd"))
        for ppd in ppds:
            run(*as_root, "cupstestppd", "-W", "sizes", "-R", self.root, ppd)
        self.staged(filter_path()).unlink()
        with self.assertRaisesRegex(AssertionError, "Missing cupsFilter2"):
            run(*as_root, "cupstestppd", "-W", "sizes", "-R", self.root, ppds[0])

    def test_folders_can_be_others_and_the_tests_can_be_left_out(self):
        build = self.folder / "build"
        run("cmake", "-S", SOURCE_DIR, "-B", build, "-G", "Ninja", "-DBUILD_TESTING=OFF",
            "-DKVFILTER_FILTER_DIR=/opt/korvell/filter", "-DKVFILTER_DRV_DIR=/opt/korvell/drv",
            "-DKVFILTER_DEFS_DIR=/opt/korvell/ppdc")
        for path in (BUILD_DIR).iterdir():  # spares compiling them once more
            if path.is_file() and os.access(path, os.X_OK):
                shutil.copy(path, build)
        self.install(build)
        for path in ("filter/kvfilter", "drv/korvell.drv", "ppdc/korvell/media.defs"):
            self.assertIn(f"/opt/korvell/{path}", self.installed())

    def test_models_are_listed_and_set_up_a_queue(self):
        self.install()
        with scheduler.Scheduler(self.staged(filter_path()),
                                 self.staged(data_folder())) as cups:
            self.assertEqual(set(cups.run(["lpinfo", "--include-schemes", "drv", "-m"]).splitlines()) & MODELS, MODELS)
            found = cups.run(["lpinfo", "--include-schemes", "drv", "--device-id",
                              "MFG:Korvell;MDL:KV2024C;CMD:POSTSCRIPT;", "-m"]).splitlines()
            self.assertEqual(found[0], "drv:///korvell.drv/kv2024c.ppd Korvell KV2024C, 1.0")
            queue = cups.add_queue("press", model="drv:///korvell.drv/kv4024x.ppd")
            output = queue.print(scheduler.sample("report"),
                                 options=["KVSignature=LeftSigCenterStaple"]).output()
            self.assertIn(b'\n@PJL SET JOBATTR="@DIBB=LEFT"\n', output)


if __name__ == "__main__":
    scheduler.main()
