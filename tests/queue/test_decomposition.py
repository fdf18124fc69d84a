# SPDX-License-Identifier: Apache-2.0
"""Jobs for printers that take the features of the PPD as PJL, through a real scheduler: pstops puts
the features that lp was given into the document, and the printer finds them in the job's header."""

import pathlib
import tempfile
import unittest

import scheduler
from golden import ENTER_POSTSCRIPT, TRAILER
from scheduler import ppd, sample


def attributes(value, *names):
    return "".join(f'@PJL SET JOBATTR="@{name}={value}"\n' for name in names)


SCREEN = ("TTRC", "GTRC", "ITRC", "TSCR", "GSCR", "ISCR")
COMMANDS = {
    "*KVBrightnes Dark5": attributes("-5", "PSBR"),
    "*KVBrightnes Normal": attributes("0", "PSBR"),
    "*KVHalftone Gradation": attributes("66", *SCREEN),
    "*KVLetterHeadDuplexMode DupAuto": attributes("AUTO", "DDPM"),
    "*KVOutputMode 600x600": ("@PJL SET RESOLUTION=600\n@PJL SET BITSPERPIXEL=1\n" +
                              attributes("RASTER", "DRDM")),
    "*KVOutputMode 1200x1200": ("@PJL SET RESOLUTION=1200\n@PJL SET BITSPERPIXEL=1\n" +
                                attributes("RASTER", "DRDM")),
    "*KVOutputMode HighSpeed": "@PJL SET BITSPERPIXEL=1\n",
    "*KVSaveBlankSheet False": attributes("OFF", "SBKP"),
    "*KVTonerSaver False": "@PJL SET ECONOMODE=OFF\n",
    "*KVTonerSaver Mode1": "@PJL SET ECONOMODE=MODE1\n",
    "*KVTonerSaver Mode2": "@PJL SET ECONOMODE=MODE2\n",
    "*KVTonerSaver Mode3": "@PJL SET ECONOMODE=MODE3\n",
    "*Smoothing False": "@PJL SET RET=OFF\n",
}


def features(document):
    """The features in a document, in its order, which is that of pstops."""
    start = b"%%BeginFeature: "
    return [line.removeprefix(start).decode()
            for line in document.splitlines() if line.startswith(start)]


class DecompositionTest(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.scheduler = cls.enterClassContext(scheduler.Scheduler())

    def expect(self, job, chosen):
        """The job holds the features of its document, `chosen` among them, and the document."""
        document = job.document()
        self.assertTrue(document.endswith(b"\n\x04"), document[-20:])
        found = features(document)
        self.assertLessEqual(set(chosen), set(found))
        pjl = "".join(COMMANDS.get(feature, "") for feature in found)
        header, enter, rest = job.output().partition(ENTER_POSTSCRIPT.encode())
        self.assertTrue(enter)
        self.assertTrue(header.decode("latin-1").endswith("\n" + pjl), header)
        self.assertEqual(rest, document[:-1] + TRAILER)

    def expect_no_file(self):
        self.assertEqual(list(self.scheduler.temp_folder.glob("kvPPDPJL*")), [])

    def test_options_of_lp_arrive_in_the_header(self):
        queue = self.scheduler.add_queue("mono", ppd("kv1150p"))
        job = queue.print(sample("report"), options=["KVTonerSaver=Mode2", "KVOutputMode=1200x1200",
                                                     "KVHalftone=Gradation", "KVBrightnes=Dark5"])
        self.expect(job, ["*KVTonerSaver Mode2", "*KVOutputMode 1200x1200",
                          "*KVHalftone Gradation", "*KVBrightnes Dark5"])
        self.assertEqual(job.pages(), 4)
        self.expect_no_file()

    def test_defaults_of_the_ppd_arrive_in_the_header(self):
        job = self.scheduler.add_queue("defaults", ppd("kv1150p")).print(sample("report"))
        self.expect(job, ["*KVTonerSaver False", "*KVOutputMode 600x600", "*KVBrightnes Normal"])
        self.expect_no_file()

    def test_colour_device_is_told_what_its_postscript_says(self):
        queue = self.scheduler.add_queue("colour", ppd("kv1160p"))
        job = queue.print(sample("report"), options=["KVHalftone=Gradation",
                                                     "KVColorMatching=Saturation",
                                                     "KVColorDensityMagentaMid=+1"])
        header = job.output().partition(ENTER_POSTSCRIPT.encode())[0].decode("latin-1")
        # Once, from the line of settings: the feature itself speaks to monochrome devices only.
        self.assertEqual(header.count(attributes("66", *SCREEN)), 1)
        self.assertEqual(header.count("@TSCR="), 1)
        self.assertIn(attributes("2", "TCPR", "GCPR", "ICPR"), header)
        self.assertIn(attributes("4", "AJMM"), header)
        self.expect_no_file()

    def test_50_jobs_started_at_once_are_each_their_own(self):
        folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        names = [f"mono-{n}" for n in range(50)]
        queues = [self.scheduler.add_queue(name, ppd("kv1150p")) for name in names]
        self.scheduler.run(["cupsdisable", *names])
        jobs = []
        for n, queue in enumerate(queues):
            path = folder / f"{n}.ps"
            path.write_text("%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\n%%BeginProlog\n%%EndProlog\n"
                            "%%BeginSetup\n%%EndSetup\n%%Page: 1 1\n" + f"(job {n}) show\n" * 20000 +
                            "showpage\n%%Trailer\n%%EOF\n")
            jobs.append((queue.print(path, options=[f"KVTonerSaver=Mode{1 + n % 3}"]), n))
        self.scheduler.run(["cupsenable", *names])
        for job, n in jobs:
            with self.subTest(job=n):
                self.expect(job, [f"*KVTonerSaver Mode{1 + n % 3}"])
                self.assertEqual(job.output().count(f"(job {n}) show\n".encode()), 20000)
        self.expect_no_file()


if __name__ == "__main__":
    scheduler.main()
