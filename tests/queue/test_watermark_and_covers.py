# SPDX-License-Identifier: Apache-2.0
"""Watermarks, covers, inserts and exceptions on queues of plain CUPS: what people type, and what the
printer gets."""

import unittest
import xml.etree.ElementTree as ElementTree

import scheduler
from scheduler import ppd, sample

PRESS = "kv4024x"


def stamp_of(output):
    """The watermark's lines that set font, position and angle, and show the text."""
    text = output.decode("latin-1")
    lines = text.splitlines()
    shown = [number for number, line in enumerate(lines) if line.endswith(" show")
             and lines[number - 1].endswith(" rotate")]
    return lines[shown[0] - 4:shown[0] + 1] if shown else []


def ticket_of(output):
    """The XML ticket in front of the job as nested names: [("cover-front", [...])], or None."""
    if not output.startswith(b"<?xml"):
        return None
    root = ElementTree.fromstring(output[:output.index(b"</kpif>") + len(b"</kpif>")])

    def nested(element):
        children = [nested(child) for child in element]
        return element.tag, children if children else element.text
    return [nested(element) for element in root.find("job-template-attributes")]


def media(kind, colour="white", size=(21000, 29700), kind_first=True):
    fields = [("media-type", kind), ("media-color", colour),
              ("media-size", [("x-dimension", str(size[0])), ("y-dimension", str(size[1]))])]
    return "media-col", fields if kind_first else fields[1:] + fields[:1]


def named(kind):
    return "media-col", [("media-type", kind)]


def exception(pages, sides, paper):
    def ranges(first, last):
        return [("value", [("lower-bound", str(first)), ("upper-bound", str(last))])]
    return "value", [("input-documents", ranges(1, 1)), ("pages", ranges(*pages)),
                     ("sides", sides), paper]


def insert(page, count, paper):
    return "value", [("insert-after-page-number", str(page)), ("insert-count", str(count)), paper]


SPECIAL_PAGES = [
    ("KVFrontCover=Thick:both",
     [("cover-front", [("cover-type", "print-both"), media("thick")])]),
    ("KVFrontCover=ExtraThick KVBackCover=Custom.Tab,Interposer",
     [("cover-front", [("cover-type", "print-none"), media("extra-thick")]),
      ("cover-back", [("cover-type", "print-none"), named("Tab")])]),
    ("KVInsert=3,7:Tab,Interposer",
     [("insert-sheet", [insert(3, 1, named("Tab")), insert(7, 1, named("Tab"))])]),
    ("KVInsert=Custom.0:Thick,blue:2+5:Tab PageSize=A3",
     [("insert-sheet", [insert(0, 2, media("thick", "blue", (29700, 42000), False)),
                        insert(5, 1, media("tab", "white", (29700, 42000), False))])]),
    ("KVException=2-5:Thick:one-sided",
     [("page-overrides", [exception((2, 5), "one-sided", media("thick"))])]),
    ("KVException=Custom.9-:Coated sides=two-sided-long-edge media=Letter",
     [("page-overrides", [exception((9, 2147483647), "two-sided-long-edge",
                                    media("coated", size=(21590, 27940)))])]),
    ("KVInsert=None KVFrontCover=None", None),
    ("KVInsert=7-3:Tab", None),
]

OUTLINE = "gsave({})true charpath 1 setlinejoin {} setlinewidth stroke grestore() show"

WATERMARKS = [
    (["KVWatermark=Draft", "KVWatermarkSize=72"],
     ["/Helvetica-Bold 72 selectfont", "55 rotate", OUTLINE.format("DRAFT", "1.15")]),
    (["KVWatermark=Copy", "KVWatermarkStyle=Filled", "KVWatermarkSize=72", "number-up=2"],
     ["/Helvetica-Bold 72 selectfont", "125 rotate", "(COPY) show"]),
    (["KVWatermark=Custom.Top\\ (100\\ %)\\\\", "KVWatermarkStyle=Filled", "KVWatermarkAngle=0",
      "KVWatermarkFont=Courier", "KVWatermarkSize=20"],
     ["/Courier 20 selectfont", "0 rotate", r"(Top \050100 \045\051\134) show"]),
    (["KVWatermark=None"], []),
]


class WatermarkAndCoversTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.scheduler = cls.enterClassContext(scheduler.Scheduler())
        cls.press = cls.scheduler.add_queue("press", ppd(PRESS))

    def test_special_pages(self):
        jobs = [(options, self.press.print(sample("plain"), options.split()), ticket)
                for options, ticket in SPECIAL_PAGES]
        for options, job, ticket in jobs:
            with self.subTest(options):
                self.assertEqual(ticket_of(job.output()), ticket, job.log())

    def test_watermarks(self):
        jobs = [(options, self.press.print(sample("plain"), options), stamp)
                for options, stamp in WATERMARKS]
        for options, job, stamp in jobs:
            with self.subTest(options):
                lines = stamp_of(job.output())
                self.assertEqual([lines[1], lines[3], lines[4]] if lines else [], stamp)

    def test_letters_of_latin_1_have_a_font_of_their_own(self):
        job = self.press.print(sample("plain"), ["KVWatermark='Entwurf für Müller'"])
        lines = stamp_of(job.output())
        self.assertIn("/Encoding ISOLatin1Encoding put", lines[1])
        self.assertIn(r"(Entwurf f\374r M\374ller)", lines[4])

    def test_queue_has_a_watermark_of_its_own(self):
        queue = self.scheduler.add_queue("confidential", ppd(PRESS))
        for option in ("KVWatermark=Confidential", "KVWatermarkColor=Red", "KVWatermarkSize=Custom.50",
                       "KVWatermarkStyle=Filled", "KVWatermarkDensity=100"):
            self.scheduler.run(["lpadmin", "-p", queue.name, "-o", option])
        plain = queue.print(sample("plain"))
        other = queue.print(sample("plain"), ["KVWatermark=Mine", "KVWatermarkColor=Blue"])
        none = queue.print(sample("plain"), ["KVWatermark=None"])
        lines = stamp_of(plain.output())
        self.assertEqual([lines[0], lines[1], lines[4]],
                         ["1.00 0.00 0.00 setrgbcolor", "/Helvetica-Bold 50 selectfont",
                          "(CONFIDENTIAL) show"])
        lines = stamp_of(other.output())
        self.assertEqual([lines[0], lines[4]], ["0.00 0.00 1.00 setrgbcolor", "(Mine) show"])
        self.assertEqual(stamp_of(none.output()), [])

    def test_what_is_dropped_or_changed_is_said(self):
        cases = [
            ("KVInsert=3", "KVInsert=3 is not understood; allowed: PAGES:MEDIA[:COUNT]"),
            ("KVWatermarkColor=Pink", "KVWatermarkColor=Pink is not understood; allowed: Black, Red"),
            ("KVWatermark=3€", "KVWatermark=3€ loses the letters that the printer does not know"),
            ("KVWatermark=Draft KVWatermarkSize=900",
             "KVWatermark=Draft is 228 points large; 900 do not fit the sheet"),
        ]
        jobs = [(self.press.print(sample("plain"), options.split()), message)
                for options, message in cases]
        for job, message in jobs:
            with self.subTest(message):
                job.wait()
                warnings = [line for line in job.log().splitlines() if line.startswith("W ")
                            and "This computer's address" not in line]
                self.assertEqual(len(warnings), 1, job.log())
                self.assertIn(message, warnings[0])


if __name__ == "__main__":
    scheduler.main()
