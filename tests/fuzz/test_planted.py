# SPDX-License-Identifier: Apache-2.0
"""The errors that scripts/fuzz --planted plants can be planted, and no fuzz target is without."""

import pathlib
import sys
import unittest

HERE = pathlib.Path(__file__).resolve().parent
sys.path.append(str(HERE))
import planted  # noqa: E402 (found by the line above)


class PlantedTest(unittest.TestCase):
    def test_each_stands_in_its_place(self):
        for row in planted.rows([]):
            with self.subTest(**row):
                text = (planted.ROOT / row["path"]).read_text(encoding="utf-8")
                self.assertEqual(text.count(row["was"]), 1)
                self.assertNotEqual(row["was"], row["now"])
                self.assertTrue(row["error"])

    def test_each_target_has_one(self):
        self.assertEqual({row["target"] for row in planted.rows([])},
                         {path.stem for path in HERE.glob("*Fuzz.cpp")})


if __name__ == "__main__":
    unittest.main()
