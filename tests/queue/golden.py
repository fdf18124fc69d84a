# SPDX-License-Identifier: Apache-2.0
"""What golden jobs have in common. A header is written out line by line, "\\r" included."""

import socket

JOB_MODE = "\x1b%-12345X@PJL JOB MODE=PRINTER\r\n"
ENTER_POSTSCRIPT = "@PJL ENTER LANGUAGE=POSTSCRIPT\n"
TRAILER = b"\x1b%-12345X@PJL EOJ\n"


def accounting(user, pages_per_sheet="N1"):
    """The lines that every job carries for the printer's accounting. The scheduler always says how
    many pages a sheet holds."""
    return (f'@PJL SET JOBATTR="@CNAM={socket.gethostname()[:96]}"\n'
            f'@PJL SET JOBATTR="@LUNA={user}"\n'
            f'@PJL SET JOBATTR="@NLPP={pages_per_sheet}"\n')


def job_information(*lines):
    """The block that describes the job; its fixed lines and those given, in their order."""
    described = ["BEGIN", "PDLTYPE=PDL[POSTSCRIPT]:VERSION[3]", "JOBTYPE=PRINT", *lines, "END"]
    return "".join(f"@PJL COMMENT KVJOBINFO {line}\n" for line in ["VERSION=1.3.0", *described])


def golden_job(header, document, end=b"\x04"):
    """A whole job: the header; the document's lines as they came (what follows the last line end is
    dropped); the end of the PostScript, which printers that take their settings as PJL do without;
    the trailer."""
    lines = document[:document.rfind(b"\n") + 1]
    return header.encode("latin-1") + lines + end + TRAILER
