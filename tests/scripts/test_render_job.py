# SPDX-License-Identifier: Apache-2.0
"""scripts/render-job."""

import pathlib
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
RENDER_JOB = ROOT / "scripts/render-job"
REPORT = (ROOT / "samples/report.ps").read_bytes()


def job(document):
    return (b"\x1b%-12345X@PJL JOB MODE=PRINTER\r\n@PJL ENTER LANGUAGE=POSTSCRIPT\n"
            + document + b"\x04\x1b%-12345X@PJL EOJ\n")


class RenderJobTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.job = pathlib.Path(folder.name) / "job"
        self.picture = pathlib.Path(folder.name) / "page.png"

    def render(self, data, *page):
        self.job.write_bytes(data)
        return subprocess.run([RENDER_JOB, self.job, self.picture, *page], capture_output=True)

    def page(self, data, *page):
        done = self.render(data, *page)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, b"", b""))
        return self.picture.read_bytes()

    def test_pages(self):
        pages = [self.page(job(REPORT), str(number)) for number in (1, 2, 3, 4)]
        self.assertEqual(len(set(pages)), 4)
        self.assertEqual(self.page(job(REPORT)), pages[0])
        for picture in pages:
            self.assertEqual(picture[:8], b"\x89PNG\r\n\x1a\n")

    def test_size_of_a_page(self):
        document = b"<</PageSize[400 300]>>setpagedevice showpage\n"
        size = self.page(job(document))[16:24]
        self.assertEqual((int.from_bytes(size[:4], "big"), int.from_bytes(size[4:], "big")),
                         (400, 300))

    def test_what_it_cannot_show(self):
        for data, page, reason in ((job(REPORT), "5", b"no page 5"),
                                   (job(b"showpage nosuchprocedure\n"), "1", b"does not run"),
                                   (b"%!PS\nshowpage\n", "1", b"not a printer-ready job")):
            with self.subTest(reason=reason):
                done = self.render(data, page)
                self.assertEqual((done.returncode, done.stdout), (1, b""))
                self.assertIn(b"render-job: ", done.stderr)
                self.assertIn(reason, done.stderr)
                self.assertFalse(self.picture.exists())


if __name__ == "__main__":
    unittest.main()
