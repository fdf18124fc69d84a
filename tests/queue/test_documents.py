# SPDX-License-Identifier: Apache-2.0
"""Documents of any maker through a real scheduler and cups-filters, where the queue's PPD says
*KVFrontEnd: "CUPS".

Each job is printed with a watermark and without one. The page log must count what Ghostscript
makes of what the printer received, and every page must be the page without a watermark with the
stamp on top, to the pixel. Every document is tried with some of the settings in turn;
KVFILTER_MATRIX=all tries each with all settings, all renderers and both passes (twenty minutes);
KVFILTER_DOCUMENTS names some of the documents, KVFILTER_PICTURES a folder that keeps the pages.
"""

import functools
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
DOCUMENTS = os.environ.get("KVFILTER_DOCUMENTS", " ".join(MAKERS)).split()
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
PICTURE_FILES = {"picture.png", "picture.jpg"}
# Of a document of one page, there is none between 2 and 3.
SHORT = PICTURE_FILES | {"nocomments.ps"}
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


TURNS = itertools.cycle(itertools.product(SETTINGS, QUEUES))
RENDERER_TURNS = itertools.cycle(RENDERERS)


def is_possible(name, setting, renderer):
    """Not what CUPS itself cannot print: of pictures and PostScript pstops repeats the pages, and
    those of Ghostscript cannot be shown twice, without this filter either."""
    if setting == "ranges":
        return name not in SHORT
    repeats = name == "ps2write.ps" or (name in PICTURE_FILES and renderer == "gs")
    return not (setting == "collated" and repeats)


def cells(name):
    """(setting, queue, renderer or None) of every job of this run with the document `name`."""
    if ALL:
        used = RENDERERS if name in THROUGH_PDF else [None]
        chosen = itertools.product(SETTINGS, QUEUES, used)
    else:
        chosen = [(*next(TURNS), next(RENDERER_TURNS) if name in THROUGH_PDF else None)
                  for _ in range(5)]
    return [cell for cell in chosen if is_possible(name, cell[0], cell[2])]


def document(job):
    """What the printer's PostScript interpreter gets of the job."""
    output = job.output()
    start = output.index(ENTER_POSTSCRIPT.encode()) + len(ENTER_POSTSCRIPT)
    if not output.endswith(TRAILER):
        raise AssertionError(f"no trailer: {output[-50:]}")
    return output[start:-len(TRAILER)]


def bare_document(job):
    """What a queue without this filter sends."""
    job.wait()
    return job.received()


def timeless(postscript):
    """Without the lines that tell when a converter ran."""
    return re.sub(rb"%%CreationDate.*|D:[0-9]{14}[^)]*", b"", postscript)


def keep(label, stamped):
    if PICTURES:
        for number, page in enumerate(stamped):
            path = pathlib.Path(PICTURES, f"{label}-{number + 1}.ppm".replace(", ", "-"))
            path.write_bytes(b"P6\n%s\n255\n%s" % (page.size, page.pixels))


@functools.cache
def alone(stamp):
    """The page of a document that has nothing but its stamp."""
    page, = render(b"%!PS\n" + stamp + b"showpage\n")
    return page


def queue_ppd(folder, model):
    path = folder / f"{model}.ppd"
    lines = ppd(model).read_text()
    if "*KVFrontEnd" not in lines:
        lines = lines.replace("*cupsFilter2", '*KVFrontEnd: "CUPS"\n*cupsFilter2', 1)
    path.write_text(lines)
    return path


def submit(queue, path, setting, renderer, more):
    options, copies = SETTINGS[setting]
    used = [f"pdftops-renderer={renderer}"] if renderer else []
    return queue.print(path, [*options, *used, *more], copies=copies)


class DocumentsTest(unittest.TestCase):
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
        stamp = alone(blocks[0])
        self.assertLess(stamp.pixels.count(255), len(stamp.pixels) * 0.99)
        self.assertEqual([difference(*pages, stamp) for pages in zip(stamped, bare)],
                         [0] * len(bare))

    def print_and_check(self, name, folder, press):
        """Prints one document in every cell through a scheduler of its own."""
        queues = {queue: press.add_queue(queue, queue_ppd(folder, model))
                  for queue, model in QUEUES.items()}
        path = make(name, folder)
        jobs = []
        for setting, queue, renderer in cells(name):
            bare, stamped = (submit(queues[queue], path, setting, renderer, more)
                             for more in ([], WATERMARK))
            jobs.append((", ".join(filter(None, (name, setting, queue, renderer))), bare, stamped))
        for label, bare, stamped in jobs:
            with self.subTest(label):
                self.check(label, bare, stamped)

    def test_every_page_is_counted_and_stamped(self):
        for name in DOCUMENTS:
            with tempfile.TemporaryDirectory() as folder, scheduler.Scheduler() as press:
                self.print_and_check(name, pathlib.Path(folder), press)

    def test_without_the_switch_documents_are_left_alone(self):
        with tempfile.TemporaryDirectory() as folder, scheduler.Scheduler() as press:
            folder = pathlib.Path(folder)
            queues = {queue: press.add_queue(queue, ppd(model)) for queue, model in QUEUES.items()}
            for queue, model in QUEUES.items():  # to the printer goes what the filter reads
                bare = folder / f"{queue}.ppd"
                bare.write_text(ppd(model).read_text().replace(" 0 kvfilter", " 0 -"))
                queues["bare-" + queue] = press.add_queue("bare-" + queue, bare)
            jobs = {}
            for name in DOCUMENTS:
                path = make(name, folder)
                jobs[name] = {queue: entry.print(path) for queue, entry in queues.items()}
            for name, job in jobs.items():
                with self.subTest(name):
                    read = timeless(bare_document(job["bare-plain"]))
                    self.assertTrue(read.endswith(b"\n\x04"))
                    self.assertEqual(timeless(document(job["plain"])), read)
                    # Here Ctrl-D, which has no line end, does not return from the disk.
                    read = timeless(bare_document(job["bare-decomposition"]))
                    self.assertEqual(timeless(document(job["decomposition"])), read[:-1])


if __name__ == "__main__":
    scheduler.main()
