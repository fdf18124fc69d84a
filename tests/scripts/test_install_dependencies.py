# SPDX-License-Identifier: Apache-2.0
"""scripts/install-dependencies, on machines that are made up of a few commands."""

import pathlib
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
    def run_on(self, **commands):
        """Runs the script where these are all the commands; returns what it did and what it called
        of apt-get."""
        with tempfile.TemporaryDirectory() as folder:
            machine = pathlib.Path(folder)
            for name, body in commands.items():
                path = machine / name.replace("_", "-")
                path.write_text(f"#!/bin/sh\n{body}\n")
                path.chmod(0o755)
            (machine / "env").symlink_to("/usr/bin/env")
            done = subprocess.run(["/bin/sh", SCRIPT], env={"PATH": folder}, capture_output=True,
                                  text=True)
            calls = machine / "calls"
            lines = calls.read_text().splitlines() if calls.exists() else []
        return done, [line.replace(folder + "/", "") for line in lines]

    def test_nothing_missing_does_nothing(self):
        done, calls = self.run_on(dpkg_query=ALL_INSTALLED, id=USER, apt_get=RECORD)
        self.assertEqual((done.returncode, done.stdout, done.stderr, calls), (0, "", "", []))

    def test_root_installs_what_is_missing_after_one_update(self):
        done, calls = self.run_on(dpkg_query=NINJA_AND_GS_MISSING, id=ROOT, apt_get=RECORD)
        self.assertEqual(done.returncode, 0, done.stderr)
        apt_get = "apt-get -q -y -o DPkg::Lock::Timeout=300"
        self.assertEqual(calls, [f"{apt_get} update", f"{apt_get} install --no-install-recommends "
                                                      "ninja-build ghostscript"])

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
                                  apt_get=RECORD + '; case "$*" in *install*) exit 100;; esac')
        self.assertEqual((done.returncode, len(calls)), (100, 2))

    def test_failed_update_still_tries_the_lists_at_hand(self):
        done, calls = self.run_on(dpkg_query=NINJA_AND_GS_MISSING, id=ROOT,
                                  apt_get=RECORD + '; case "$*" in *update*) exit 100;; esac')
        self.assertEqual((done.returncode, len(calls)), (0, 2), done.stderr)
        self.assertIn("apt-get update failed", done.stderr)


if __name__ == "__main__":
    unittest.main()
