# SPDX-License-Identifier: Apache-2.0
"""kvjobinfo where the system refuses it something: it says so and shows nothing that is wrong."""

import os
import resource
import signal
import subprocess
import unittest

from scheduler import ppd

TOOL = os.environ["KVJOBINFO_BINARY"]


def strace(calls, what):
    """The command that does `what` to `calls`."""
    return ["strace", "-f", "-qq", "-o", "/dev/null", "-e", f"trace={calls}",
            "-e", f"inject={calls}:{what}"]


def explain(options, before=(), limit=None):
    """`limit` is a resource and how much there is of it."""
    def prepare():
        signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
        if limit:
            resource.setrlimit(limit[0], (limit[1], limit[1]))
    return subprocess.run([*before, TOOL, "explain", "--ppd", str(ppd("kv1010p")), options],
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=60, preexec_fn=prepare,
                          check=False)


class KvjobinfoFaultsTest(unittest.TestCase):
    def check(self, done, why):
        self.assertEqual((done.stderr.decode(), done.stdout, done.returncode),
                         (f"kvjobinfo: explain: {why}\n", b"", 2))

    def test_no_process_for_one_of_two_options(self):
        failing = strace("clone,clone3", "error=EAGAIN:when=2")
        self.check(explain("KVStaple=None KVPunch=None", failing),
                   "Resource temporarily unavailable")

    def test_a_process_that_is_killed(self):
        self.check(explain("KVStaple=None", strace("dup2,dup3", "signal=KILL")),
                   "the filter was ended by signal 9")

    def test_no_files_for_the_runs(self):
        for options in ("", "KVStaple=None KVPunch=None"):
            self.check(explain(options, limit=(resource.RLIMIT_NOFILE, 5)), "Too many open files")

    def test_no_space_for_the_document(self):
        for options in ("", "KVStaple=None"):
            self.check(explain(options, limit=(resource.RLIMIT_FSIZE, 0)), "File too large")

    def test_no_space_for_what_is_shown(self):
        for words in (["options"], ["--help"], ["--version"], ["explain", ""]):
            with open("/dev/full", "wb") as full:
                done = subprocess.run([TOOL, *words], stdout=full, stderr=subprocess.PIPE,
                                      check=False)
            self.assertEqual((done.stderr, done.returncode), (
                b"kvjobinfo: standard output: No space left on device\n", 2), words)


if __name__ == "__main__":
    unittest.main()
