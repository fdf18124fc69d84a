# SPDX-License-Identifier: Apache-2.0
"""Documents of any maker through a real scheduler and cups-filters, where the queue's PPD says
*KVFrontEnd: "CUPS".

Each job is printed with a watermark and without one. The page log must count what Ghostscript
makes of what the printer received, and every page must be the page without a watermark with the
stamp on top, to the pixel. Every document is tried with some of the settings in turn;
KVFILTER_MATRIX=all tries each with all settings, all renderers and both passes (twenty minutes).
KVFILTER_PICTURES=folder keeps what was printed.
"""

import itertools
import os
import pathlib
import re
import tempfile
import unittest

import scheduler
from documents import MAKERS, difference, make, render
from golden import ENTER_POSTSCRIPT, TRAILER
from scheduler import ppd

ALL = os.environ.get("KVFILTER_MATRIX") == "all"
PICTURES = os.environ.get("KVFILTER_PICTURES")

QUEUES = {"plain": "kv1010p", "decomposition": "kv1150p"}

# name: options of lp, copies
SETTINGS = {
    "1-up": ([], 1),
    "2-up": (["number-up=2"], 1),
    "4-up": (["number-up=4"], 1),
    "duplex": (["sides=two-sided-long-edge"], 1),
    "ranges": (["page-ranges=2-3"], 1),
    "copies": (["collate=false"], 3),
    "collated": (["collate=true"], 3),
    "reverse": (["outputorder=reverse"], 1),
}
# Of a document of one page, there is none between 2 and 3.
SHORT = {"picture.png", "picture.jpg", "nocomments.ps"}
# What pdftops turns into PostScript, and what it may do it with.
THROUGH_PDF = {"ghostscript.pdf", "cairo.pdf", "chromium.pdf", "umlauts.txt", "picture.png",
               "picture.jpg"}
RENDERERS = ["gs", "pdftops", "pdftocairo"]

KEY = "com.korvell.tav.printsettings.WMARK"
WATERMARK = [f"{KEY}{name}Ticket={value}" for name, value in {
    "Name": "draft", "Type": 0, "OnlyFirst": 0, "Text": "(DRAFT)", "Font": "Helvetica-Bold",
    "FontSize": 96, "ColorR": 0.8, "ColorG": 0.1, "ColorB": 0.1, "Density": 100, "Angle": 45,
    "Orientation": 1, "PaperWidth": 595, "PaperHeight": 842, "Width": 350,
    "Height": 70}.items()]

STAMP = re.compile(rb"^4 dict begin\n/kvxStamp .*?^end\n", re.MULTILINE | re.DOTALL)


def cells():
    """(document, setting, queue, renderer or None) of every job of this run."""
    turns = itertools.cycle(itertools.product(SETTINGS, QUEUES))
    renderers = itertools.cycle(RENDERERS)
    for name in MAKERS:
        if ALL:
            used = RENDERERS if name in THROUGH_PDF else [None]
            chosen = itertools.product(SETTINGS, QUEUES, used)
        else:
            some = itertools.islice(turns, 5)
            chosen = [(*turn, next(renderers) if name in THROUGH_PDF else None) for turn in some]
        for setting, queue, renderer in chosen:
            if not (name in SHORT and setting == "ranges"):
                yield name, setting, queue, renderer


def document(job):
    """What the printer's PostScript interpreter gets of the job."""
    output = job.output()
    start = output.index(ENTER_POSTSCRIPT.encode()) + len(ENTER_POSTSCRIPT)
    if not output.endswith(TRAILER):
        raise AssertionError(f"no trailer: {output[-50:]}")
    return output[start:-len(TRAILER)]


def keep(label, stamped):
    if PICTURES:
        for number, page in enumerate(stamped):
            path = pathlib.Path(PICTURES, f"{label}-{number + 1}.ppm".replace(", ", "-"))
            path.write_bytes(b"P6\n%s\n255\n%s" % (page.size, page.pixels))


class DocumentsTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        cls.scheduler = cls.enterClassContext(scheduler.Scheduler())
        cls.queues = {}
        for name, model in QUEUES.items():
            path = cls.folder / f"{name}.ppd"
            lines = ppd(model).read_text()
            if "*KVFrontEnd" not in lines:
                lines = lines.replace("*cupsFilter2", '*KVFrontEnd: "CUPS"\n*cupsFilter2', 1)
            path.write_text(lines)
            cls.queues[name] = cls.scheduler.add_queue(name, path)
        cls.documents = {name: make(name, cls.folder) for name in MAKERS}

    def submit(self, name, setting, queue, renderer, more):
        options, copies = SETTINGS[setting]
        used = [f"pdftops-renderer={renderer}"] if renderer else []
        return self.queues[queue].print(self.documents[name], [*options, *used, *more],
                                        copies=copies)

    def check(self, label, bare_job, stamped_job):
        bare = render(document(bare_job))
        postscript = document(stamped_job)
        stamped = render(postscript)
        keep(label, stamped)
        self.assertGreater(len(bare), 0)
        self.assertEqual(bare_job.pages(), len(bare))
        self.assertEqual(stamped_job.pages(), len(stamped))
        self.assertEqual(len(stamped), len(bare))
        blocks = STAMP.findall(postscript)
        self.assertEqual(len(blocks), 1)
        stamp, = render(b"%!PS\n" + blocks[0] + b"showpage\n")
        self.assertLess(stamp.pixels.count(255), len(stamp.pixels) * 0.99)
        self.assertEqual([difference(*pages, stamp) for pages in zip(stamped, bare)],
                         [0] * len(bare))

    def test_every_page_is_counted_and_stamped(self):
        jobs = []
        for cell in cells():
            jobs.append((cell, self.submit(*cell, []), self.submit(*cell, WATERMARK)))
        for cell, bare, stamped in jobs:
            label = ", ".join(filter(None, cell))
            with self.subTest(label):
                self.check(label, bare, stamped)


if __name__ == "__main__":
    scheduler.main()
