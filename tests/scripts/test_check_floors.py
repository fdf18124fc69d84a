# SPDX-License-Identifier: Apache-2.0
"""scripts/check-floors: the house keeps to its floors, and a unit that does not is refused."""

import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

SOURCE_DIR = pathlib.Path(__file__).resolve().parents[2]
SCRIPT = SOURCE_DIR / "scripts/check-floors"


def check(folder):
    return subprocess.run([sys.executable, SCRIPT, folder], capture_output=True, text=True)


class CheckFloorsTest(unittest.TestCase):
    def test_the_house_keeps_to_its_floors(self):
        done = check(SOURCE_DIR)
        self.assertEqual((done.returncode, done.stderr), (0, ""))

    def refused(self, unit, included):
        """What is said when a unit also includes another one."""
        with tempfile.TemporaryDirectory() as folder:
            for name in ("CommonSource", "FrontEnd", "Modules", "Tables", "Tools"):
                shutil.copytree(SOURCE_DIR / name, pathlib.Path(folder, name))
            pathlib.Path(folder, "scripts").mkdir()
            shutil.copy(SOURCE_DIR / "scripts/floors", pathlib.Path(folder, "scripts"))
            path = pathlib.Path(folder, unit)
            old = path.read_text() if path.exists() else ""
            path.write_text(f'{old}\n#include "{included}"\n')
            done = check(folder)
            self.assertEqual(done.returncode, 1)
            return done.stderr

    def test_an_include_that_climbs_is_refused(self):
        self.assertIn("Tables/CompareFunctions (floor 1) includes "
                      "CommonSource/FilterFrame/Source/JobTicket, which is above it (floor 2)",
                      self.refused("Tables/CompareFunctions.cpp",
                                   "CommonSource/FilterFrame/Source/JobTicket.h"))

    def test_a_module_does_not_include_another(self):
        self.assertIn("Modules/JBA/JBATicket includes Modules/PBind/PBindTicket, which is apart",
                      self.refused("Modules/JBA/JBATicket.cpp", "Modules/PBind/PBindTicket.h"))

    def test_the_front_end_does_not_know_a_modules_record(self):
        self.assertIn("FrontEnd/Messages includes Modules/PBind/PBindTicket, which is apart",
                      self.refused("FrontEnd/Messages.cpp", "Modules/PBind/PBindTicket.h"))

    def test_units_in_a_circle_are_refused(self):
        self.assertIn("a circle: ", self.refused("Modules/PBind/PBindTicket.cpp",
                                                 "Modules/PBind/PBindCommands.h"))

    def test_a_unit_of_a_new_folder_needs_a_floor(self):
        self.assertIn("CommonSource/Other has no floor",
                      self.refused("CommonSource/Other.cpp", "Tables/ControlSymbols.h"))


if __name__ == "__main__":
    unittest.main()
