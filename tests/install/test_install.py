# SPDX-License-Identifier: Apache-2.0
"""What an installation puts where, staged in a temporary folder."""

import os
import pathlib
import shutil
import stat
import subprocess
import tempfile
import unittest

SOURCE_DIR = pathlib.Path(__file__).resolve().parents[2]
BUILD_DIR = pathlib.Path(os.environ["KVFILTER_BUILD_DIR"])


def run(*command, **environment):
    done = subprocess.run(command, env={**os.environ, **environment}, text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    if done.returncode != 0:
        raise AssertionError(f"{command}: {done.stdout}")
    return done.stdout.strip()


class InstallTest(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.root = self.folder / "root"

    def installed(self):
        return {f"/{path.relative_to(self.root)}" for path in self.root.rglob("*")
                if path.is_file()}

    def test_filter_goes_where_this_cups_looks_for_it(self):
        run("cmake", "--install", BUILD_DIR, "--prefix", "/usr", DESTDIR=str(self.root))
        filter_path = run("cups-config", "--serverbin") + "/filter/kvfilter"
        self.assertEqual(self.installed(), {filter_path, "/usr/share/man/man8/kvfilter.8"})

        # The scheduler runs no filter that others than root may change.
        mode = (self.root / filter_path[1:]).stat().st_mode
        self.assertEqual(stat.S_IMODE(mode), 0o755)

        # A PPD names the filter, and the filter is there under that name.
        for ppd in pathlib.Path(os.environ["KVFILTER_PPD_DIR"]).glob("*.ppd"):
            run("cupstestppd", "-W", "sizes", "-R", self.root, ppd)
        (self.root / filter_path[1:]).unlink()
        with self.assertRaisesRegex(AssertionError, "Missing cupsFilter2"):
            run("cupstestppd", "-W", "sizes", "-R", self.root, ppd)

    def test_filter_folder_can_be_another_one(self):
        build = self.folder / "build"
        run("cmake", "-S", SOURCE_DIR, "-B", build, "-G", "Ninja", "-DBUILD_TESTING=OFF",
            "-DKVFILTER_FILTER_DIR=/opt/korvell/filter")
        shutil.copy(BUILD_DIR / "kvfilter", build)  # spares compiling it once more
        run("cmake", "--install", build, "--prefix", "/usr", DESTDIR=str(self.root))
        self.assertIn("/opt/korvell/filter/kvfilter", self.installed())


if __name__ == "__main__":
    unittest.main()
