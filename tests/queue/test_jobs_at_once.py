# SPDX-License-Identifier: Apache-2.0
"""Fifty jobs that take their settings as PJL, each through a file of its own, at the same time."""

import pathlib
import tempfile
import unittest

import scheduler
from golden import ENTER_POSTSCRIPT, JOB_MODE, accounting, golden_job, job_information
from scheduler import ppd, sample

JOBS = 50
TONER_SAVER = ["False", "True", "Mode1", "Mode2", "Mode3"]
ECONOMODE = ["OFF", "ON", "MODE1", "MODE2", "MODE3"]


def header(number):
    return f"""\
{JOB_MODE}\
{accounting(f"user{number}")}\
@PJL SET RENDERMODE=GRAYSCALE
{job_information("DUPLEXTYPE=TUMBLE", "COLORMODE=GRAYSCALE", "NUP=1")}\
@PJL SET RESOLUTION=600
@PJL SET BITSPERPIXEL=1
@PJL SET JOBATTR="@DRDM=RASTER"
@PJL SET JOBATTR="@DDPM=AUTO"
@PJL SET JOBATTR="@SBKP=OFF"
@PJL SET RET=OFF
@PJL SET ECONOMODE={ECONOMODE[number % 5]}
@PJL SET JOBATTR="@PSBR=0"
{ENTER_POSTSCRIPT}"""


class JobsAtOnceTest(unittest.TestCase):
    def test_each_job_is_its_own_and_leaves_no_file(self):
        folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        cups = self.enterContext(scheduler.Scheduler())
        queues = [cups.add_queue(f"mono-{number}", ppd("kv1150p")) for number in range(JOBS)]
        names = [queue.name for queue in queues]
        cups.run(["cupsdisable", *names])
        jobs = [queue.print(self.document(folder, number), user=f"user{number}",
                            options=[f"KVTonerSaver={TONER_SAVER[number % 5]}"])
                for number, queue in enumerate(queues)]
        cups.run(["cupsenable", *names])
        for number, job in enumerate(jobs):
            with self.subTest(job=number):
                output = job.output()
                self.assertEqual(output, golden_job(header(number), job.document(), end=b""))
                self.assertEqual(output.count(b"(Report of user %d)" % number), 4)
                self.assertEqual(job.pages(), 4)
        self.assertEqual(list(cups.temp_folder.glob("kv*")), [])

    def document(self, folder, number):
        """The report with its number on every page."""
        path = folder / f"report-{number}.ps"
        text = sample("report").read_text()
        path.write_text(text.replace("foot\nep\n", f"foot\n(Report of user {number}) 100 body\nep\n"))
        return path


if __name__ == "__main__":
    scheduler.main()
