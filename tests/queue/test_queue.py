# SPDX-License-Identifier: Apache-2.0
"""Jobs through a real scheduler: lp, pstops, the filter, the backend."""

import pathlib
import tempfile
import unittest

import scheduler
from golden import (ENTER_POSTSCRIPT, JOB_MODE, TRAILER, accounting, golden_job,
                    job_information)
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

    def test_cancelled_job_ends_with_its_page_and_its_trailer(self):
        queue = self.scheduler.add_queue("slow", ppd("kv1010p"))
        queue.printer.ready.clear()
        folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        document = folder / "long.ps"
        text = sample("report").read_text()
        # More than all that stands between pstops and the printer can hold.
        document.write_text(text.replace("(2) foot\n", "% filler\n" * 5_000_000 + "(2) foot\n"))
        job = queue.print(document)
        await_true(lambda: "bytes of print data" in job.log(), job.log)
        job.cancel()
        queue.printer.ready.set()
        self.assertIn("canceled", job.end())
        output = job.received()
        self.assertIn(b"\n%%Page: 2 2\n", output)
        self.assertNotIn(b"\n%%Page: 3 3\n", output)
        self.assertTrue(output.endswith(TRAILER), output[-50:])

    def test_every_sample_ppd_makes_a_queue_that_prints(self):
        for path in sorted(ppd("kv1010p").parent.glob("*.ppd")):
            with self.subTest(ppd=path.name):
                job = self.scheduler.add_queue(path.stem, path).print(sample("report"))
                front, enter, rest = job.output().partition(ENTER_POSTSCRIPT.encode())
                self.assertTrue(front.startswith(JOB_MODE.encode()), front)
                self.assertTrue(all(line.startswith((b"@PJL ", b"\x1b%-12345X@PJL "))
                                    for line in front.splitlines()), front)
                document = job.document()
                lines = document[:document.rfind(b"\n") + 1]
                self.assertIn(rest, (lines + b"\x04" + TRAILER, lines + TRAILER))


if __name__ == "__main__":
    scheduler.main()
