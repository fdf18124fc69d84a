# SPDX-License-Identifier: Apache-2.0
"""Takes a printer-ready job apart: the filter's own output, read back.

A job is, in this order: an XML document for special pages (only when asked for), the PJL header up
to the line that switches to PostScript, the document, and the trailer. docs/job-format.md shows one.
"""

import dataclasses

EXIT_LANGUAGE = b"\x1b%-12345X"
ENTER_POSTSCRIPT = b"@PJL ENTER LANGUAGE=POSTSCRIPT\n"
END_OF_JOB = EXIT_LANGUAGE + b"@PJL EOJ\n"
JOB_INFORMATION = b"@PJL COMMENT KVJOBINFO "
PAGE_ENDS = (b"ep", b"endp", b"showpage")


def is_job_information(line):
    """Whether a line of the header describes the job and sets nothing."""
    return line.startswith(JOB_INFORMATION)


@dataclasses.dataclass(frozen=True)
class PrinterJob:
    special_pages: bytes  # the XML document, or nothing
    header: tuple  # PJL lines with their line ends, the last one switching to PostScript
    document: bytes  # PostScript; a Ctrl-D closes it unless the job was cancelled
    trailer: bytes

    @property
    def document_offset(self):
        """Where in the job the document begins."""
        return len(self.special_pages) + sum(map(len, self.header))

    @property
    def job_information(self):
        """The header's lines that describe the job: nothing, or all from VERSION to END."""
        return tuple(filter(is_job_information, self.header))

    @property
    def pages(self):
        """How often the document ends a page with a line of its own."""
        lines = self.document.replace(b"\r", b"\n").split(b"\n")
        return sum(line in PAGE_ENDS for line in lines)


def decode(job):
    """The parts of a job; together they are all of its bytes. Raises ValueError for other data."""
    start = job.find(EXIT_LANGUAGE)
    if start < 0:
        raise ValueError("no universal exit language: not a printer-ready job")
    end = len(job) - len(END_OF_JOB)
    if not job.endswith(END_OF_JOB) or end <= start:
        raise ValueError("no end of job: not a printer-ready job, or not all of it")
    header = []
    place = start
    while place < end and ENTER_POSTSCRIPT not in header:
        next_line = job.find(b"\n", place, end) + 1 or end
        header.append(job[place:next_line])
        place = next_line
    return PrinterJob(job[:start], tuple(header), job[place:end], job[end:])


def visible(line):
    """A line of a job as text, what cannot be printed named in angle brackets."""
    names = {0x0A: "<LF>", 0x0D: "<CR>", 0x1B: "<ESC>"}
    return "".join(chr(byte) if 0x20 <= byte < 0x7F else names.get(byte, f"<{byte:02X}>")
                   for byte in line)
