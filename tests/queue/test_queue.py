# SPDX-License-Identifier: Apache-2.0
"""Jobs through a real scheduler: lp, pstops, the filter, the backend."""

import pathlib
import re
import tempfile
import unittest

import scheduler
from golden import ENTER_POSTSCRIPT, JOB_MODE, accounting, golden_job, job_information
from scheduler import await_true, ppd, sample


def header(user="alice"):
    """The header of a job without options on an office printer."""
    return (JOB_MODE + accounting(user) + "@PJL SET RENDERMODE=GRAYSCALE\n" +
            job_information("DUPLEXTYPE=TUMBLE", "COLORMODE=GRAYSCALE", "NUP=1") +
            ENTER_POSTSCRIPT)


class QueueTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.scheduler = cls.enterClassContext(scheduler.Scheduler())
        cls.office = cls.scheduler.add_queue("office", ppd("kv1010p"))

    def test_job_arrives_whole(self):
        job = self.office.print(sample("report"))
        self.assertEqual(job.output(), golden_job(header(), job.document()))

    def test_page_log_counts_the_pages_of_every_copy(self):
        job = self.office.print(sample("report"), copies=3)
        self.assertEqual(job.pages(), 12)

    def test_page_log_knows_only_pages_that_end_with_ep(self):
        for name in ("book", "plain"):
            with self.subTest(document=name):
                job = self.office.print(sample(name))
                self.assertEqual(job.output(), golden_job(header(), job.document()))
                self.assertEqual(job.pages(), 0)

    def test_two_up_job_holds_the_line_that_disables_setpagedevice(self):
        job = self.office.print(sample("report"), options=["number-up=2"])
        self.assertIn(b"\nuserdict/setpagedevice{pop}bind put\n", job.output())

    def test_jobs_of_many_queues_at_once_are_each_their_own(self):
        queues = [self.scheduler.add_queue(f"office-{n}", ppd("kv1010p")) for n in range(8)]
        documents = ["report", "book", "plain", "report"] * 2
        jobs = [queue.print(sample(name), user=f"user{n}")
                for n, (queue, name) in enumerate(zip(queues, documents))]
        for n, job in enumerate(jobs):
            with self.subTest(job=n):
                self.assertEqual(job.output(), golden_job(header(f"user{n}"), job.document()))
                self.assertIn(b"%%%%For: (user%d)\n" % n, job.output())

    # A filter in the middle of a write stops at no page end, and the socket backend takes no signal
    # while filters feed it: JobKillDelay is what ends them.
    def test_cancelled_job_stops_although_the_printer_takes_nothing(self):
        queue = self.scheduler.add_queue("stuck", ppd("kv1010p"))
        queue.printer.ready.clear()
        folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        document = folder / "long.ps"
        text = sample("report").read_text()
        document.write_text(text.replace("(4) foot\n", "(4) foot\n" + "% filler\n" * 2_000_000))
        job = queue.print(document)
        process = await_true(lambda: re.search(r"kvfilter \(PID (\d+)\)", job.log()), job.log)[1]
        job.cancel()
        self.assertIn("canceled", job.end())
        await_true(lambda: not pathlib.Path("/proc", process).exists(), job.log)

        queue.printer.ready.set()
        self.assertEqual(queue.print(sample("report")).pages(), 4)

    def test_every_sample_ppd_makes_a_queue_that_prints(self):
        for path in sorted(ppd("kv1010p").parent.glob("*.ppd")):
            with self.subTest(ppd=path.name):
                job = self.scheduler.add_queue(path.stem, path).print(sample("report"))
                output = job.output()
                self.assertTrue(output.startswith(b"\x1b%-12345X@PJL JOB MODE=PRINTER\r\n"))
                self.assertTrue(output.endswith(b"\x1b%-12345X@PJL EOJ\n"))


if __name__ == "__main__":
    scheduler.main()
