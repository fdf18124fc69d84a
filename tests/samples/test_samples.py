# SPDX-License-Identifier: Apache-2.0
"""The sample documents render, whatever the filter puts into them."""

import pathlib
import subprocess
import unittest

SAMPLES = pathlib.Path(__file__).resolve().parents[2] / "samples"

# What a watermark writes at the points that the filter knows, and nothing visible.
INJECTED = {
    "%%BeginProlog": ("", "userdict/kvxInfo 2 dict dup begin\n/kvxpgsave 0 def\n"
                          "/kvxbp{/kvxpgsave save store} bind def\n"),
    "%%EndPageSetup": ("", "kvxbp\n"),
    "ep": ("pgsave restore /pgsave save store gsave\n0 0 moveto\ngrestore\n", ""),
    "endp": ("pm restore /pm save store gsave\n0 0 moveto\ngrestore\n", ""),
}


def render(document):
    """The pages of a document as one bitmap."""
    command = ["gs", "-q", "-dSAFER", "-dBATCH", "-dNOPAUSE", "-sDEVICE=pbmraw", "-r36",
               "-sOutputFile=-", "-"]
    done = subprocess.run(command, input=document.encode(), capture_output=True)
    if done.returncode != 0 or done.stderr:
        raise AssertionError(done.stdout.decode(errors="replace") + done.stderr.decode())
    return done.stdout


def inject(document):
    lines = []
    for line in document.splitlines():
        before, after = INJECTED.get(line, ("", ""))
        lines.append(f"{before}{line}\n{after}")
    return "".join(lines)


class SamplesTest(unittest.TestCase):
    def test_each_renders_its_pages(self):
        for name, pages in (("report", 4), ("book", 3), ("plain", 2)):
            with self.subTest(document=name):
                document = (SAMPLES / f"{name}.ps").read_text()
                self.assertIn(f"%%Pages: {pages}\n", document)
                self.assertEqual(render(document).count(b"P4\n"), pages)

    def test_each_looks_the_same_with_a_watermarks_frame_in_it(self):
        for name, points in (("report", 9), ("book", 7), ("plain", 3)):
            with self.subTest(document=name):
                document = (SAMPLES / f"{name}.ps").read_text()
                lines = document.splitlines()
                self.assertEqual(sum(line in INJECTED for line in lines), points)
                self.assertEqual(render(inject(document)), render(document))


if __name__ == "__main__":
    unittest.main()
