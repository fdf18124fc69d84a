# SPDX-License-Identifier: Apache-2.0
"""What golden jobs have in common. A header is written out line by line, "\\r" included."""

import socket

JOB_MODE = "\x1b%-12345X@PJL JOB MODE=PRINTER\r\n"
ENTER_POSTSCRIPT = "@PJL ENTER LANGUAGE=POSTSCRIPT\n"
TRAILER = b"\x1b%-12345X@PJL EOJ\n"


def accounting(user, pages_per_sheet="N1"):
    """The lines that every job carries for the printer's accounting. The scheduler gives a job that
    says nothing of it one page on a sheet."""
    host = socket.gethostname()[:96]
    return (f'@PJL SET JOBATTR="@CNAM={host}"\n'
            f'@PJL SET JOBATTR="@LUNA={user}"\n'
            f'@PJL SET JOBATTR="@NLPP={pages_per_sheet}"\n')


def job_information(*lines):
    """The block that describes the job; its fixed lines and those given, in their order."""
    described = ["BEGIN", "PDLTYPE=PDL[POSTSCRIPT]:VERSION[3]", "JOBTYPE=PRINT", *lines, "END"]
    return "".join(f"@PJL COMMENT KVJOBINFO {line}\n" for line in ["VERSION=1.3.0", *described])


def golden_job(header, document):
    """A whole job: the header; the document's lines as they came (what follows the last line end is
    dropped); the end of the PostScript; the trailer."""
    lines = document[:document.rfind(b"\n") + 1]
    return header.encode("latin-1") + lines + b"\x04" + TRAILER
