# SPDX-License-Identifier: Apache-2.0
"""The sample PPDs conform, to the letter that CUPS checks."""

import os
import pathlib
import subprocess
import unittest


class PpdTest(unittest.TestCase):
    def test_all_conform(self):
        ppds = sorted(pathlib.Path(os.environ["KVFILTER_PPD_DIR"]).glob("*.ppd"))
        self.assertEqual(len(ppds), 7)
        for ppd in ppds:
            with self.subTest(ppd=ppd.name):
                # The filter is not installed; that it is found where it is, another test shows.
                done = subprocess.run(["cupstestppd", "-I", "filters", ppd], text=True,
                                      stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
                self.assertEqual(done.returncode, 0, done.stdout)
                self.assertNotIn("FAIL", done.stdout)


if __name__ == "__main__":
    unittest.main()
