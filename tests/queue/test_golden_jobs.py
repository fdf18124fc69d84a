# SPDX-License-Identifier: Apache-2.0
"""One golden job per family of machines, through a real scheduler: every byte is expected."""

import unittest

import scheduler
from golden import ENTER_POSTSCRIPT, JOB_MODE, accounting, golden_job, job_information
from scheduler import ppd, sample


class GoldenJobsTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.scheduler = cls.enterClassContext(scheduler.Scheduler())

    def expect(self, model, options, header, document="report", end=b"\x04", **settings):
        queue = self.scheduler.add_queue(model, ppd(model))
        job = queue.print(sample(document), options, **settings)
        self.maxDiff = None
        self.assertEqual(job.output(), golden_job(header, job.document(), end))

    def test_office_job_duplex_stapled_and_punched(self):
        self.expect("kv1010p", [
            "sides=two-sided-long-edge",
            "DuplexBindingEdge..n.=2",
            "com.apple.print.PrintSettings.PMCopies..n.=2",
            "collate=true",
            "KVSignature=None",
            "KVColorMode=Color",
            "KVLineWeightAdjustment=Weakly2",
            "KVStaple=LeftDouble",
            "KVPunch=Left",
        ], f"""\
{JOB_MODE}\
{accounting("bob")}\
@PJL SET JOBATTR="@LWAD=2"
@PJL SET RENDERMODE=COLOR
{job_information(
    "JOBCOPIES=2",
    "PAGECOPIES=1",
    "DUPLEXTYPE=DUPLEX",
    "COLORMODE=COLOR",
    "NUP=1",
    "STAPLE=ON",
    "PUNCH=ON",
    "BOOKLETTYPE=TYPE[NOBOOKLET]",
)}\
{ENTER_POSTSCRIPT}""", user="bob", copies=2)

    def test_saddle_stitched_booklet(self):
        self.expect("kv2110c", [
            "KVSignature=LeftSigCenterStaple",
            "KVSigVol=5Sheets",
            "KVStaple=SaddleStaple",
            "KVColorMode=Gray",
        ], f"""\
{JOB_MODE}\
{accounting("alice")}\
@PJL SET JOBATTR="@DIND=PORTRAIT"
@PJL SET JOBATTR="@DIBB=LEFT"
@PJL SET JOBATTR="@DIBK=MANUALDIVIDE"
{job_information(
    "DUPLEXTYPE=TUMBLE",
    "NUP=1",
    "STAPLE=OFF",
    "BOOKLETTYPE=TYPE[MANUALDIVIDE]:THRESHOLD[5]",
)}\
{ENTER_POSTSCRIPT}""")

    def test_booklet_without_job_information(self):
        for model in ("kv2120c", "kv2130c"):
            with self.subTest(model=model):
                self.expect(model, ["KVSignature=RightSigFold", "KVSigVol=None", "number-up=2"], f"""\
{JOB_MODE}\
{accounting("alice", "N2")}\
@PJL SET JOBATTR="@DIND=LANDSCAPE"
@PJL SET JOBATTR="@DIBB=RIGHT"
@PJL SET JOBATTR="@DIBK=NONEDIVIDE"
@PJL SET RENDERMODE=GRAYSCALE
{ENTER_POSTSCRIPT}""")

    def test_perfect_bound_book(self):
        self.expect("kv4110x", [
            "DuplexBindingEdge..n.=2",
            "KVColorMode=Color",
            "KVPBindPosition=BindRight",
            "KVPBindTrimming=3EdgeSpecifySize",
            "KVPBindPageSize=A4",
            "KVPBindCutPageSize=B5",
            "KVPBindRotationAdjustTop=3",
            "KVPBindCoverAdjustX=2",
            "KVPBindCoverPageSize=DL",
            "KVPBindCoverMediaType=ThickPaper",
            "KVPBindCoverMediaColor=Blue",
            "KVPBindCoverPaperTray=PBindInserter",
        ], f"""\
{JOB_MODE}\
{accounting("alice")}\
@PJL SET JOBATTR="@PBRE=RIGHT"
@PJL SET JOBATTR="@MSDA=ROTLEFPORT"
@PJL SET JOBATTR="@PBTC=FULLBLEED"
@PJL SET JOBATTR="@PBBP=A4"
@PJL SET JOBATTR="@PBTP=JISB5"
@PJL SET JOBATTR="@PBTW=1820"
@PJL SET JOBATTR="@PBTH=2570"
@PJL SET JOBATTR="@ISXO=140"
@PJL SET JOBATTR="@ISXT=-140"
@PJL SET JOBATTR="@PBAB=3"
@PJL SET JOBATTR="@PBAX=-2"
@PJL SET JOBATTR="@PBCP=LEDGER"
@PJL SET JOBATTR="@PBCQ=THICK"
@PJL SET JOBATTR="@PBCC=BLUE"
@PJL SET JOBATTR="@PBCT=INTRAY9"
@PJL SET JOBATTR="@PBCI=OFF"
@PJL SET RENDERMODE=COLOR
{job_information("DUPLEXTYPE=DUPLEX", "COLORMODE=COLOR", "NUP=1")}\
{ENTER_POSTSCRIPT}""", document="book")

    def test_settings_as_pjl_of_a_monochrome_printer(self):
        self.expect("kv1150p", [
            "KVTonerSaver=Mode2",
            "KVOutputMode=1200x1200",
            "KVHalftone=Fineness",
            "Smoothing=True",
            "KVBrightnes=Dark3",
        ], f"""\
{JOB_MODE}\
{accounting("alice")}\
@PJL SET RENDERMODE=GRAYSCALE
{job_information("DUPLEXTYPE=TUMBLE", "COLORMODE=GRAYSCALE", "NUP=1")}\
@PJL SET RESOLUTION=1200
@PJL SET BITSPERPIXEL=1
@PJL SET JOBATTR="@DRDM=RASTER"
@PJL SET JOBATTR="@DDPM=AUTO"
@PJL SET JOBATTR="@SBKP=OFF"
@PJL SET RET=ON
@PJL SET ECONOMODE=MODE2
@PJL SET JOBATTR="@PSBR=-3"
@PJL SET JOBATTR="@TTRC=64"
@PJL SET JOBATTR="@GTRC=64"
@PJL SET JOBATTR="@ITRC=64"
@PJL SET JOBATTR="@TSCR=64"
@PJL SET JOBATTR="@GSCR=64"
@PJL SET JOBATTR="@ISCR=64"
{ENTER_POSTSCRIPT}""", end=b"")

    def test_settings_as_pjl_of_a_color_printer(self):
        self.expect("kv1160p", [
            "KVOutputMode=600x600",
            "KVHalftone=Gradation",
            "KVColorMatching=Saturation",
            "KVColorDensityMagentaMid=+1",
            "KVRGBBCorrection=Darkest",
        ], f"""\
{JOB_MODE}\
{accounting("alice")}\
@PJL SET RENDERMODE=GRAYSCALE
@PJL SET RESOLUTION=600
@PJL SET BITSPERPIXEL=1
@PJL SET JOBATTR="@DRDM=RASTER"
@PJL SET JOBATTR="@DDPM=AUTO"
@PJL SET JOBATTR="@SBKP=OFF"
@PJL SET RET=OFF
@PJL SET ECONOMODE=OFF
@PJL SET JOBATTR="@PSBR=0"
@PJL SET JOBATTR="@TTRC=66"
@PJL SET JOBATTR="@GTRC=66"
@PJL SET JOBATTR="@ITRC=66"
@PJL SET JOBATTR="@TSCR=66"
@PJL SET JOBATTR="@GSCR=66"
@PJL SET JOBATTR="@ISCR=66"
@PJL SET JOBATTR="@TCPR=2"
@PJL SET JOBATTR="@GCPR=2"
@PJL SET JOBATTR="@ICPR=2"
@PJL SET JOBATTR="@TRAP=OFF"
@PJL SET JOBATTR="@GRGU=TEXTGRAPHICS"
@PJL SET JOBATTR="@RGBP=SRGB"
@PJL SET JOBATTR="@RGBG=DARKEST"
@PJL SET JOBATTR="@BSPM=OFF"
@PJL SET JOBATTR="@AJCL=3"
@PJL SET JOBATTR="@AJCM=3"
@PJL SET JOBATTR="@AJCH=3"
@PJL SET JOBATTR="@AJML=3"
@PJL SET JOBATTR="@AJMM=4"
@PJL SET JOBATTR="@AJMH=3"
@PJL SET JOBATTR="@AJYL=3"
@PJL SET JOBATTR="@AJYM=3"
@PJL SET JOBATTR="@AJYH=3"
@PJL SET JOBATTR="@AJKL=3"
@PJL SET JOBATTR="@AJKM=3"
@PJL SET JOBATTR="@AJKH=3"
{ENTER_POSTSCRIPT}""", end=b"")


if __name__ == "__main__":
    scheduler.main()
