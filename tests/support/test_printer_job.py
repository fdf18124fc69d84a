# SPDX-License-Identifier: Apache-2.0
"""The tests' own decoder of jobs."""

import unittest

from printer_job import decode, visible

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


if __name__ == "__main__":
    unittest.main()
