# SPDX-License-Identifier: Apache-2.0
"""Signals at random moments: whenever CUPS cancels a job or the printer goes away, what came out is
whole up to a page end, the page log counts what came out, and nothing is left behind."""

import concurrent.futures
import os
import pathlib
import random
import signal
import subprocess
import tempfile
import threading
import unittest

FILTER = os.environ["KVFILTER_BINARY"]
MOMENTS = 200  # for each signal and mode
TIMEOUT = 30  # seconds
SEED = int(os.environ.get("KVFILTER_SEED", "20260101"))

TRAILER = b"\x1b%-12345X@PJL EOJ\n"
ENTER = b"@PJL ENTER LANGUAGE=POSTSCRIPT\n"
PIPE = 600_000  # bytes that no pipe of the filter's holds
LINES = b"".join(b"%d %d moveto (words) show\n" % (n, n) for n in range(2000))
PAGES = 20
PAGE = b"bp\n" + LINES + b"ep\n"
DOCUMENT = b"%!PS-Adobe-3.0\n" + PAGE * PAGES + b"\x04"

PPD = """*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*Manufacturer: "Korvell"
*Product: "(Korvell Test)"
*ModelName: "Korvell Test"
*ShortNickName: "Korvell Test"
*NickName: "Korvell Test"
*PSVersion: "(3010.000) 0"
*KVPSDecompMode: "{decomposition}"
{front_end}*OpenUI *PageSize/Page Size: PickOne
*DefaultPageSize: A4
*PageSize A4/A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageSize
*DefaultImageableArea: A4
*ImageableArea A4/A4: "0 0 595 842"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595 842"
"""
STORED = ("store", False)
MODES = [(pass_, cups) for pass_ in ("plain", "store") for cups in (False, True)]


class Job:
    """A filter at work in a folder of its own; what it says and puts out is gathered."""

    def __init__(self, folder, mode):
        self.temp = pathlib.Path(tempfile.mkdtemp(dir=folder))
        environment = {"TMPDIR": str(self.temp), "PPD": str(folder / f"{mode[0]}-{mode[1]}.ppd")}
        self.process = subprocess.Popen([FILTER, "1", "alice", "Report", "1", ""], env=environment,
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=subprocess.PIPE, bufsize=0)
        self.output = bytearray()
        self.errors = b""

    def _listen(self):
        self.errors = self.process.stderr.read()

    def run(self, moment, act):
        """Feeds and drains the job; calls `act` once as many bytes as `moment` have gone in, or, if
        it is negative, come out."""
        listener = threading.Thread(target=self._listen)
        listener.start()

        def feed():
            first = max(moment, 0)
            self._write(DOCUMENT[:first])
            if moment >= 0:
                act(self)
            self._write(DOCUMENT[first:])
            self.process.stdin.close()

        feeder = threading.Thread(target=feed)
        feeder.start()
        acted = False
        while data := os.read(self.process.stdout.fileno(), 4096):
            self.output += data
            if not acted and moment < 0 and len(self.output) >= -moment:
                acted = True
                act(self)
        status = self.process.wait(TIMEOUT)
        feeder.join(TIMEOUT)
        listener.join(TIMEOUT)
        for stream in (self.process.stdout, self.process.stderr):
            stream.close()
        return status

    def _write(self, data):
        view = memoryview(data)
        try:
            while view.nbytes:
                view = view[os.write(self.process.stdin.fileno(), view):]
        except BrokenPipeError:
            pass

    def pages_logged(self):
        return self.errors.count(b"PAGE:")

    def files(self):
        return sorted(path.name for path in self.temp.iterdir())


def terminate(job):
    job.process.send_signal(signal.SIGTERM)


def send_pipe(job):
    job.process.send_signal(signal.SIGPIPE)


def close_output(job):
    null = os.open(os.devnull, os.O_RDONLY)
    os.dup2(null, job.process.stdout.fileno())
    os.close(null)


class SignalsTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        print(f"seed {SEED}")
        cls.folder = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        cls.pool = cls.enterClassContext(concurrent.futures.ThreadPoolExecutor(4))
        cls.whole = {}
        for mode in MODES:
            text = PPD.format(decomposition=int(mode[0] == "store"),
                              front_end='*KVFrontEnd: "CUPS"\n' if mode[1] else "")
            (cls.folder / f"{mode[0]}-{mode[1]}.ppd").write_text(text)
            job = Job(cls.folder, mode)
            assert job.run(0, lambda _: None) == 0
            cls.whole[mode] = bytes(job.output)

    def moments(self, mode, share_in):
        """Random ones: bytes that have gone in or, negative, come out. By then the filter has set
        itself up; there is still a page end to come in, or more to come out than pipes hold and
        the page that is being sent."""
        chance = random.Random(f"{SEED} {mode}")
        size = len(DOCUMENT)
        return [chance.randrange(PIPE, size - len(PAGE)) if chance.random() < share_in
                else -chance.randrange(1, size - PIPE - len(PAGE)) for _ in range(MOMENTS)]

    def at_each_moment(self, act, check, share_in=0.5):
        """Calls `check(mode, job, status)` for the jobs of all modes and moments; `share_in` of
        the moments are while the document goes in."""
        work = [(mode, moment) for mode in MODES for moment in self.moments(mode, share_in)]

        def run(item):
            mode, moment = item
            job = Job(self.folder, mode)
            return job, job.run(moment, act)

        for (mode, moment), (job, status) in zip(work, self.pool.map(run, work)):
            with self.subTest(mode=mode, moment=moment):
                check(mode, job, status)

    def test_cancelled(self):
        def check(mode, job, status):
            whole, output = self.whole[mode], bytes(job.output)
            self.assertEqual(status, 0)
            self.assertNotIn(b"ERROR", job.errors)
            self.assertTrue(output.endswith(TRAILER), output[-100:])
            front = output[:-len(TRAILER)]
            self.assertTrue(whole.startswith(front), len(front))
            self.assertNotEqual(len(output), len(whole))
            rest = whole[len(front):]
            at_page_end = rest.startswith(b"ep\n") or front.endswith(b"\nep\n")
            self.assertTrue(at_page_end if ENTER in front else mode[0] == "store", rest[:20])
            if mode != STORED:  # there pages are logged as they are stored
                self.assertEqual(job.pages_logged(), front.count(b"\nep\n"))
            stays = mode == STORED and ENTER not in front
            self.assertEqual(len(job.files()), int(stays), job.files())

        self.at_each_moment(terminate, check)

    def test_told_that_the_reader_has_gone(self):
        def check(mode, job, status):
            self.assertEqual(status, 1)
            self.assertTrue(bytes(job.output) == self.whole[mode])
            self.assertEqual(job.files(), [])

        self.at_each_moment(send_pipe, check)

    def test_reader_goes(self):
        def check(mode, job, status):
            self.assertTrue(self.whole[mode].startswith(bytes(job.output)))
            self.assertEqual(status, 1)
            if mode[1]:
                message = b"ERROR: Standard output could not be written: Broken pipe\n"
                self.assertIn(message, job.errors)
                self.assertLessEqual(job.pages_logged(), PAGES)
            self.assertEqual(job.files(), [])

        self.at_each_moment(close_output, check, share_in=0)


if __name__ == "__main__":
    unittest.main()
