# SPDX-License-Identifier: Apache-2.0
"""The examples of docs/options.md: each row's example is a job of its own, whose output has what the
row says that the printer gets."""

import os
import pathlib
import re
import shlex
import subprocess
import unittest

SOURCE_DIR = pathlib.Path(__file__).resolve().parents[2]
PAGE = SOURCE_DIR / "docs/options.md"
PPD = pathlib.Path(os.environ["KVFILTER_PPD_DIR"]) / "kv4024x.ppd"
HEADING = "| option | values | example | the printer gets |\n"


def codes(cell):
    """What a cell of a table says in code."""
    return re.findall(r"`([^`]+)`", cell)


def rows():
    """(option, lp's example, what the printer gets) of each row of the tables of examples."""
    for table in PAGE.read_text().split(HEADING)[1:]:
        for line in table.split("\n\n")[0].splitlines()[1:]:
            option, _, example, effects = line.strip("| ").split(" | ")
            yield codes(option), codes(example)[0], codes(effects)


def printed(options):
    """What the printer gets of a job whose options lp's command line names."""
    words = [word for word in shlex.split(options) if word != "-o"]
    # lp takes the quotes away and escapes what they held together.
    values = [word.replace("\\", "\\\\").replace('"', "").replace(" ", "\\ ") for word in words]
    with open(SOURCE_DIR / "samples/plain.ps", "rb") as document:
        done = subprocess.run([os.environ["KVFILTER_BINARY"], "17", "alice", "Report", "1",
                               " ".join(values)], stdin=document, capture_output=True, check=True,
                              env={**os.environ, "PPD": str(PPD)})
    return done.stdout.decode("latin-1")


class OptionsExamplesTest(unittest.TestCase):
    def test_examples_do_what_the_page_says(self):
        plain = printed("")
        for options, example, effects in rows():
            with self.subTest(example):
                self.assertTrue(any(option in example for option in options))
                output = printed(example)
                self.assertGreater(len(effects), 0)
                for effect in effects:
                    self.assertIn(effect, output)
                    self.assertNotIn(effect, plain)

    def test_every_short_option_has_its_values_on_the_page(self):
        page = PAGE.read_text().split("## What the print dialog sends")[0]
        rows_file = (SOURCE_DIR / "FrontEnd/ShortOptions.def").read_text()
        options = re.findall(r'^KV_SHORT_OPTION\("(KV\w+)", "([^"]+)"', rows_file, re.MULTILINE)
        self.assertGreater(len(options), 20)
        for option, choices in options:
            with self.subTest(option):
                self.assertIn(f"`{option}", page)
                row = next((line for line in page.splitlines()
                            if f"`{option}`" in line.split(" | ")[0]), choices)
                for choice in choices.split():
                    self.assertIn(choice, row)


if __name__ == "__main__":
    unittest.main()
