# SPDX-License-Identifier: Apache-2.0
"""scripts/show-job and the decoder behind it."""

import pathlib
import subprocess
import tempfile
import unittest

from printer_job import decode, visible

SHOW_JOB = pathlib.Path(__file__).resolve().parents[2] / "scripts/show-job"

SPECIAL_PAGES = b'<?xml version="1.0"?>\n<kpif/>\n'
HEADER = (
    b"\x1b%-12345X@PJL JOB MODE=PRINTER\r\n",
    b'@PJL SET JOBATTR="@LUNA=Ren\xe9"\n',
    b"@PJL COMMENT KVJOBINFO VERSION=1.3.0\n",
    b"@PJL COMMENT KVJOBINFO BEGIN\n",
    b"@PJL COMMENT KVJOBINFO END\n",
    b"@PJL ENTER LANGUAGE=POSTSCRIPT\n",
)
DOCUMENT = b"%!PS\nbp\nep\nendp\rshowpage\n(ep) show\n\x04"
TRAILER = b"\x1b%-12345X@PJL EOJ\n"
JOB = SPECIAL_PAGES + b"".join(HEADER) + DOCUMENT + TRAILER


class DecodeTest(unittest.TestCase):
    def test_parts(self):
        job = decode(JOB)
        self.assertEqual(job.special_pages, SPECIAL_PAGES)
        self.assertEqual(job.header, HEADER)
        self.assertEqual(job.job_information, HEADER[2:5])
        self.assertEqual(job.document, DOCUMENT)
        self.assertEqual(job.document_offset, JOB.index(b"%!PS"))
        self.assertEqual(job.pages, 3)
        self.assertEqual(job.trailer, TRAILER)

    def test_job_without_document(self):
        for header in (HEADER[:-1], HEADER[:1]):
            job = decode(b"".join(header) + TRAILER)
            self.assertEqual(job.header, header)
            self.assertEqual((job.special_pages, job.document, job.pages), (b"", b"", 0))

    def test_document_that_holds_a_job(self):
        job = decode(b"".join(HEADER) + JOB + b"\x04" + TRAILER)
        self.assertEqual(job.header, HEADER)
        self.assertEqual(job.document, JOB + b"\x04")

    def test_other_data_is_refused(self):
        for data in (b"", b"%!PS\n", TRAILER, JOB[:-1], JOB[:60]):
            with self.subTest(data=data), self.assertRaisesRegex(ValueError, "not a printer-ready"):
                decode(data)

    def test_line_ends_and_other_bytes_are_visible(self):
        self.assertEqual(visible(HEADER[0]), "<ESC>%-12345X@PJL JOB MODE=PRINTER<CR><LF>")
        self.assertEqual(visible(b"Ren\xe9\x00\x7f~"), "Ren<E9><00><7F>~")


class ShowJobTest(unittest.TestCase):
    def show(self, data, *options):
        with tempfile.NamedTemporaryFile() as job:
            job.write(data)
            job.flush()
            return subprocess.run([SHOW_JOB, *options, job.name], capture_output=True)

    def test_whole_job(self):
        done = self.show(JOB)
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        self.assertEqual(done.stdout.decode(), """\
special pages: 30 bytes of XML
    <?xml version="1.0"?>
    <kpif/>
header: 2 lines
    <ESC>%-12345X@PJL JOB MODE=PRINTER<CR><LF>
    @PJL SET JOBATTR="@LUNA=Ren<E9>"<LF>
job information: 3 lines
    @PJL COMMENT KVJOBINFO VERSION=1.3.0<LF>
    @PJL COMMENT KVJOBINFO BEGIN<LF>
    @PJL COMMENT KVJOBINFO END<LF>
header: 1 line
    @PJL ENTER LANGUAGE=POSTSCRIPT<LF>
document: from byte 216, 36 bytes, 3 pages, closed by Ctrl-D
    %!PS<LF>
trailer: 18 bytes
    <ESC>%-12345X@PJL EOJ<LF>
""")

    def test_cancelled_job(self):
        done = self.show(b"".join(HEADER) + b"%!PS\n" + TRAILER)
        self.assertIn(b"5 bytes, 0 pages, without Ctrl-D at its end\n", done.stdout)

    def test_document_alone(self):
        self.assertEqual(self.show(JOB, "--document").stdout, DOCUMENT)

    def test_other_data(self):
        done = self.show(b"%!PS\n")
        self.assertEqual((done.returncode, done.stdout), (1, b""))
        self.assertRegex(done.stderr, rb"^show-job: /.*: no universal exit language")


if __name__ == "__main__":
    unittest.main()
