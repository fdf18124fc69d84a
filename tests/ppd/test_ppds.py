# SPDX-License-Identifier: Apache-2.0
"""The PPDs conform, to the letter that CUPS checks."""

import os
import pathlib
import re
import subprocess
import unittest

PPDS = pathlib.Path(os.environ["KVFILTER_PPD_DIR"])
MACHINES = {"kv1024p", "kv2024c", "kv4024x"}
FIXTURES = {"kv1010p", "kv1150p", "kv1160p", "kv2110c", "kv2120c", "kv2130c", "kv4110x"}

# What cupstestppd warns of and what cannot be otherwise: sizes by the names that the machine binds,
# and KVWatermark, whose sisters' names say what they belong to.
KNOWN_WARNINGS = re.compile(r'Size "(KV\w+(-KAI|-KAI-GCO)?|TabloidExtra)" should be the Adobe|'
                            r"KVWatermark shares a common prefix with KVWatermark")


def check(model):
    """What cupstestppd says. The filter is not installed; that it is found where it is, another
    test shows."""
    return subprocess.run(["cupstestppd", "-I", "filters", PPDS / f"{model}.ppd"], text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT)


class PpdTest(unittest.TestCase):
    def test_these_are_all(self):
        self.assertEqual({ppd.stem for ppd in PPDS.glob("*.ppd")}, MACHINES | FIXTURES)

    def test_all_conform(self):
        for model in sorted(MACHINES | FIXTURES):
            with self.subTest(ppd=model):
                done = check(model)
                self.assertEqual(done.returncode, 0, done.stdout)
                self.assertNotIn("FAIL", done.stdout)

    def test_machines_give_no_warning_that_could_be_avoided(self):
        for model in sorted(MACHINES):
            with self.subTest(ppd=model):
                warnings = [line for line in check(model).stdout.splitlines() if "WARN" in line]
                self.assertEqual([w for w in warnings if not KNOWN_WARNINGS.search(w)], [])


if __name__ == "__main__":
    unittest.main()
