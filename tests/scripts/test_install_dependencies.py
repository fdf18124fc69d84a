# SPDX-License-Identifier: Apache-2.0
"""scripts/install-dependencies, on machines that are made up of a few commands."""

import pathlib
import shutil
import subprocess
import tempfile
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "scripts/install-dependencies"

ALL_INSTALLED = "echo installed"
NINJA_AND_GS_MISSING = 'case "$*" in *" ninja-build"|*" ghostscript") exit 1;; *) echo installed;; esac'
REMOVED = "echo config-files"
ROOT, USER = "echo 0", "echo 1000"
RECORD = 'echo "$0 $*" >> "${0%/*}/calls"'


class InstallDependenciesTest(unittest.TestCase):
    def run_on(self, *purposes, **commands):
        """Runs the script where these are all the commands; returns what it did and what it called
        of apt-get. self.log is then what apt-get said."""
        with tempfile.TemporaryDirectory() as folder:
            machine = pathlib.Path(folder, "bin")
            machine.mkdir()
            script = pathlib.Path(folder, "scripts", SCRIPT.name)
            script.parent.mkdir()
            shutil.copy(SCRIPT, script)
            for name, body in commands.items():
                path = machine / name.replace("_", "-")
                path.write_text(f"#!/bin/sh\n{body}\n")
                path.chmod(0o755)
            for name in ("dirname", "env", "mkdir", "sed", "tail"):
                (machine / name).symlink_to(shutil.which(name))
            done = subprocess.run(["/bin/sh", script, *purposes], env={"PATH": str(machine)},
                                  capture_output=True, text=True)
            log = pathlib.Path(folder, "build/install-dependencies.log")
            self.log = log.read_text() if log.exists() else None
            calls = machine / "calls"
            lines = calls.read_text().splitlines() if calls.exists() else []
        return done, [line.replace(f"{machine}/", "") for line in lines]

    def test_nothing_missing_does_nothing(self):
        done, calls = self.run_on(dpkg_query=ALL_INSTALLED, id=USER, apt_get=RECORD)
        self.assertEqual((done.returncode, done.stdout, done.stderr, calls), (0, "", "", []))

    def test_root_installs_what_is_missing_after_one_update(self):
        done, calls = self.run_on(dpkg_query=NINJA_AND_GS_MISSING, id=ROOT, apt_get=RECORD)
        self.assertEqual(done.returncode, 0, done.stderr)
        apt_get = "apt-get -q -y -o DPkg::Lock::Timeout=300"
        self.assertEqual(calls, [f"{apt_get} update", f"{apt_get} install --no-install-recommends "
                                                      "ninja-build ghostscript"])

    def test_what_apt_says_goes_to_a_log_but_for_one_line(self):
        done, _ = self.run_on(dpkg_query=NINJA_AND_GS_MISSING, id=ROOT, apt_get="""\
case "$*" in *install*) echo 'Reading package lists...'
echo '0 upgraded, 98 newly installed, 0 to remove and 3 not upgraded.'
echo 'Need to get 43.1 MB of archives.'
echo 'W: noise' >&2;; esac""")
        self.assertEqual(done.returncode, 0)
        self.assertEqual(done.stdout, "")
        said, installed = done.stderr.splitlines()
        self.assertEqual(said, "install-dependencies: installing: ninja-build ghostscript")
        self.assertRegex(installed, "^install-dependencies: installed 98 packages, 43.1 MB "
                                    "fetched; details in .*/build/install-dependencies.log$")
        self.assertIn("Reading package lists...\n", self.log)
        self.assertIn("W: noise\n", self.log)

    def test_purposes_need_less(self):
        for purposes, asked in ((["build"], " ninja-build"), (["package"], None),
                                (["demo", "build"], " ghostscript ninja-build")):
            with self.subTest(purposes=purposes):
                _, calls = self.run_on(*purposes, dpkg_query=NINJA_AND_GS_MISSING, id=ROOT,
                                       apt_get=RECORD)
                self.assertEqual(calls[1:], [] if not asked else [
                    "apt-get -q -y -o DPkg::Lock::Timeout=300 install --no-install-recommends"
                    + asked])
        done, calls = self.run_on("bild", dpkg_query=NINJA_AND_GS_MISSING, id=ROOT, apt_get=RECORD)
        self.assertEqual((done.returncode, calls), (2, []))
        self.assertIn("no such purpose: bild", done.stderr)

    def test_user_installs_through_sudo_without_a_password(self):
        done, calls = self.run_on(dpkg_query=NINJA_AND_GS_MISSING, id=USER, true=":",
                                  sudo='[ "$1" = -n ] && shift && "$@"', apt_get=RECORD)
        self.assertEqual((done.returncode, len(calls)), (0, 2), done.stderr)

    def test_removed_package_is_missing(self):
        _, calls = self.run_on(dpkg_query=REMOVED, id=ROOT, apt_get=RECORD)
        self.assertIn(" g++ ", calls[1])

    def test_user_who_may_not_install_is_told_what_is_missing(self):
        for more in ({}, {"sudo": "echo 'a password is required' >&2; exit 1"}):
            done, calls = self.run_on(dpkg_query=NINJA_AND_GS_MISSING, id=USER, apt_get=RECORD,
                                      **more)
            self.assertEqual((done.returncode, calls), (1, []))
            self.assertIn("as root, run: apt-get install ninja-build ghostscript\n", done.stderr)

    def test_other_systems_are_told_what_is_needed(self):
        done, _ = self.run_on(id=ROOT)
        self.assertEqual(done.returncode, 1)
        self.assertIn("no Debian", done.stderr)

    def test_failed_installation_fails(self):
        done, calls = self.run_on(dpkg_query=NINJA_AND_GS_MISSING, id=ROOT,
                                  apt_get=RECORD + '; case "$*" in *install*) echo broken; '
                                                   'exit 100;; esac')
        self.assertEqual((done.returncode, len(calls)), (1, 2))
        self.assertIn("\nbroken\n", done.stderr)  # the end of the log

    def test_failed_update_still_tries_the_lists_at_hand(self):
        done, calls = self.run_on(dpkg_query=NINJA_AND_GS_MISSING, id=ROOT,
                                  apt_get=RECORD + '; case "$*" in *update*) exit 100;; esac')
        self.assertEqual((done.returncode, len(calls)), (0, 2), done.stderr)
        self.assertIn("apt-get update failed", done.stderr)


if __name__ == "__main__":
    unittest.main()
