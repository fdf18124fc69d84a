# SPDX-License-Identifier: Apache-2.0
"""Many jobs at once through a real scheduler: each comes out as it does alone, every page is
counted, and no file is left."""

import pathlib
import re
import subprocess
import sys
import tempfile
import threading
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "queue"))
import scheduler  # noqa: E402
from scheduler import ppd, sample  # noqa: E402

MODELS = ("kv1010p", "kv1150p", "kv4110x")  # features in PostScript, features as PJL, a press
SUBMITTERS = 8
JOBS = 25  # of each submitter, on a queue of its own
DOCUMENTS = ("report", "book", "plain")
PDF_EVERY = 12  # one job in so many is a PDF


def without_dates(output):
    """What differs from run to run of the converters of PDF."""
    return re.sub(rb"(?m)^%%(?:CreationDate|Creator): .*$|^%RBI.*$", b"", output)


class LoadTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.scheduler = cls.enterClassContext(scheduler.Scheduler())
        folder = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        cls.paths = {name: sample(name) for name in DOCUMENTS}
        cls.paths["pdf"] = folder / "report.pdf"
        subprocess.run(["ps2pdf", sample("report"), cls.paths["pdf"]], check=True, timeout=60)
        cls.alone = {}
        for model in MODELS:
            queue = cls.scheduler.add_queue(f"alone-{model}", ppd(model))
            for name, path in cls.paths.items():
                job = queue.print(path, user="alice")
                cls.alone[model, name] = without_dates(job.output()), job.pages()

    def submit(self, queue, model, first, jobs):
        """Hands the jobs of one submitter to the queue."""
        for number in range(JOBS):
            turn = first + number
            name = "pdf" if turn % PDF_EVERY == 0 else DOCUMENTS[turn % len(DOCUMENTS)]
            jobs.append((model, name, queue.print(self.paths[name], user="alice")))

    def test_200_jobs_of_8_submitters(self):
        jobs = [[] for _ in range(SUBMITTERS)]
        queues = []
        for n in range(SUBMITTERS):
            model = MODELS[n % len(MODELS)]
            queues.append((self.scheduler.add_queue(f"load-{n}", ppd(model)), model))
        submitters = [threading.Thread(target=self.submit, args=(*queues[n], n * JOBS, jobs[n]))
                      for n in range(SUBMITTERS)]
        for thread in submitters:
            thread.start()
        for thread in submitters:
            thread.join()
        self.assertEqual(sum(map(len, jobs)), SUBMITTERS * JOBS)
        printed = expected = 0
        for model, name, job in (entry for entries in jobs for entry in entries):
            output, pages = self.alone[model, name]
            with self.subTest(model=model, document=name, job=job.number):
                self.assertTrue(without_dates(job.output(300)) == output)
            printed += job.pages()
            expected += pages
        self.assertEqual(printed, expected)
        self.assertGreater(expected, 0)
        self.assertEqual(list(self.scheduler.temp_folder.glob("kv*")), [])


if __name__ == "__main__":
    scheduler.main()
