# SPDX-License-Identifier: Apache-2.0
"""kvjobinfo as people call it."""

import fcntl
import json
import os
import pathlib
import pty
import random
import re
import select
import shlex
import signal
import struct
import subprocess
import tempfile
import termios
import time
import unittest

import scheduler
from printer_job import decode
from scheduler import ppd, sample

TOOL = os.environ["KVJOBINFO_BINARY"]
FILTER = os.environ["KVFILTER_BINARY"]
SOURCE = pathlib.Path(__file__).resolve().parents[2]
KEY = "com.korvell.tav.printsettings."
HEADER = (b"\x1b%-12345X@PJL JOB MODE=PRINTER\r\n@PJL SET HOLD=STORE\n"
          b'@PJL SET HOLDENCRYPTKEY="geheim"\r\n@PJL SET JOBATTR="@LUNA=Ren\xe9"\n'
          b"@PJL ENTER LANGUAGE=POSTSCRIPT\n")
TRAILER = b"\x1b%-12345X@PJL EOJ\n"
REPORT = sample("report").read_bytes()
JOB = HEADER + REPORT + b"\x04" + TRAILER
DRAFT = " ".join(f"{KEY}WMARK{name}Ticket={value}" for name, value in (
    ("Name", "Draft"), ("Type", "0"), ("Text", "(DRAFT)"), ("Font", "Helvetica"),
    ("FontSize", "96"), ("OnlyFirst", "0")))


def run(*arguments, **settings):
    environment = {"PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8",
                   **settings.pop("environment", {})}
    return subprocess.run([TOOL, *arguments], capture_output=True, env=environment, timeout=120,
                          **settings)


def run_filter(model, options, document, user="alice", title="Report"):
    environment = {**os.environ, "PPD": str(ppd(model))}
    return subprocess.run([FILTER, "1", user, title, "1", options], input=document, env=environment,
                          capture_output=True, timeout=60).stdout


def shown_on(leader):
    """What a terminal whose other end is closed has been sent; that takes a moment to arrive."""
    shown = b""
    try:
        while piece := os.read(leader, 65536):
            shown += piece
    except OSError:
        pass
    os.close(leader)
    return shown


class ShowTest(unittest.TestCase):
    def test_text(self):
        done = run("show", input=JOB)
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        self.assertEqual(done.stdout.decode(), f"""\
standard input: a job of {len(JOB):,} bytes, in order
job
  @PJL JOB MODE=PRINTER               the job begins
print type
  @PJL SET HOLD=STORE                 the printer keeps the job: until its owner releases it
  @PJL SET HOLDENCRYPTKEY="********"  password that releases the job
accounting
  @PJL SET JOBATTR="@LUNA=René"       name of the user
switch to PostScript
  @PJL ENTER LANGUAGE=POSTSCRIPT      the printer switches to PostScript
document: {len(REPORT) + 1:,} bytes from byte {len(HEADER)}
  title    Quarterly Report
  made by  kvfilter samples
  pages    4
  end      closed by Ctrl-D
trailer: from byte {len(JOB) - len(TRAILER)}
""")

    def test_text_of_rarer_parts(self):
        special = (b'<?xml version="1.0"?>\n<kpif><cover-back><cover-type>front</cover-type>'
                   b"</cover-back></kpif>\n")
        line = b"@PJL SET RET=ON\n@PJL SET RET=OFF\n"
        document = b"%!PS\n/kvxStamp currentdict def\nep\n"
        job = special + HEADER.replace(b"@PJL ENTER", line + b"@PJL ENTER") + document + TRAILER
        done = run("show", input=job)
        self.assertEqual((done.returncode, done.stderr), (1, b""))
        start = len(special) + len(HEADER) + len(line)
        self.assertEqual(done.stdout.decode(), f"""\
standard input: a job of {len(job):,} bytes, 1 problem
special pages: {len(special)} bytes of XML
  back cover  printed: front
job
  @PJL JOB MODE=PRINTER               the job begins
print type
  @PJL SET HOLD=STORE                 the printer keeps the job: until its owner releases it
  @PJL SET HOLDENCRYPTKEY="********"  password that releases the job
accounting
  @PJL SET JOBATTR="@LUNA=René"       name of the user
PPD features
  @PJL SET RET=ON                     smooth edges
  @PJL SET RET=OFF                    smooth edges
switch to PostScript
  @PJL ENTER LANGUAGE=POSTSCRIPT      the printer switches to PostScript
document: {len(document)} bytes from byte {start}
  pages          1
  by the filter  watermark: what stamps the pages (byte {start + 5})
  end            without Ctrl-D
trailer: from byte {len(job) - len(TRAILER)}
problems
  byte {job.index(line) + 16}  RET is given twice with different values: ON and OFF
""")

    def test_json(self):
        shown = json.loads(run("show", "--json", input=JOB).stdout)
        self.assertEqual([line["name"] for line in shown["header"]],
                         ["JOB", "HOLD", "HOLDENCRYPTKEY", "LUNA", "ENTER"])
        self.assertEqual([line["end"] for line in shown["header"]],
                         ["CRLF", "LF", "CRLF", "LF", "LF"])
        self.assertEqual(shown["header"][3]["value"], "René")
        self.assertEqual((shown["problems"], shown["document"]["pages"]), ([], 4))
        self.assertEqual(shown["trailer"]["offset"], len(JOB) - len(TRAILER))
        self.assertEqual(list(shown), ["name", "size", "header", "document", "trailer", "problems"])
        self.assertEqual(list(shown["header"][0]), ["offset", "line", "end", "group", "name",
                                                    "value", "meaning"])
        self.assertEqual(list(shown["document"]), [
            "offset", "size", "title", "maker", "statedPages", "pages", "pageEnds",
            "closedByControlD", "isCopy", "ownPostScript"])

    def test_json_of_problems(self):
        job = JOB + b"x"
        shown = json.loads(run("show", "--json", input=job).stdout)
        self.assertEqual(shown["problems"], [{"kind": "bytes-after", "offset": len(JOB),
                                              "text": "1 byte stands after the trailer"}])

    def test_json_has_all_that_is_known(self):
        job = run_filter("kv4024x", "KVBackCover=Thick:both KVWatermark=Draft KVStaple=LeftDouble",
                         REPORT)
        header = job.index(b"\x1b%-12345X@PJL JOB")
        document = job.index(b"%!PS")
        trailer = job.rindex(b"\x1b%-12345X")
        shown = json.loads(run("show", "--json", input=job).stdout)
        self.assertEqual(shown["header"][0], {
            "offset": header, "line": "<ESC>%-12345X@PJL JOB MODE=PRINTER", "end": "CRLF",
            "group": "job", "name": "JOB", "value": "MODE=PRINTER", "meaning": "the job begins"})
        del shown["header"]
        self.assertEqual(shown, {
            "name": "standard input", "size": len(job),
            "specialPages": {"size": header, "pages": [
                {"what": "back cover",
                 "words": "printed: print-both, media thick, colour white, 21000 x 29700"}]},
            "document": {
                "offset": document, "size": trailer - document, "title": "Quarterly Report",
                "maker": "kvfilter samples", "statedPages": "4", "pages": 4, "pageEnds": 4,
                "closedByControlD": True, "isCopy": False, "ownPostScript": [
                    {"meaning": "watermark: what stamps the pages", "count": 1,
                     "offset": job.index(b"/kvxStamp currentdict def")}]},
            "trailer": {"offset": trailer}, "problems": []})

    def test_secrets_are_masked_unless_asked_for(self):
        for arguments in (["show"], ["show", "--json"]):
            self.assertNotIn(b"geheim", run(*arguments, input=JOB).stdout)
            self.assertIn(b"geheim", run(*arguments, "--show-secrets", input=JOB).stdout)

    def test_statuses(self):
        cases = ((JOB, 0), (JOB[:-5], 1), (JOB + b"x", 1), (JOB + JOB, 1), (b"", 2),
                 (b"%PDF-1.7\n", 2), (b"\x1bE", 2), (REPORT, 2), (os.urandom(5000), 2))
        for data, status in cases:
            done = run("show", input=data)
            self.assertEqual(done.returncode, status, data[:20])
            self.assertEqual(done.stdout == b"", status == 2)
            self.assertEqual(done.stderr != b"", status == 2)

    def test_wrong_calls(self):
        for arguments in ([], ["shew"], ["show", "--yaml"], ["show", "a", "b"], ["page"],
                          ["page", "0", "-o", "x"], ["page", "1"], ["page", "1x", "-o", "x"],
                          ["page", "1000001", "-o", "x"], ["page", "1", "a", "b", "-o", "x"],
                          ["page", "-x"], ["explain", "a", "b"], ["explain", "--yaml"],
                          ["explain", "--ppd", "/nowhere", ""],
                          ["explain", "--ppd", "a", "--queue", "b"], ["options", "x"],
                          ["options", "--yaml"], ["options", "--ppd", "/nowhere"],
                          ["show", "/nowhere/job"], ["show", "/tmp"]):
            done = run(*arguments, stdin=subprocess.DEVNULL)
            self.assertEqual((done.returncode, done.stdout), (2, b""), arguments)
            self.assertNotEqual(done.stderr, b"", arguments)
        self.assertEqual(run("--help").returncode, 0)
        self.assertRegex(run("--version").stdout, rb"^kvjobinfo \d+\.\d+\.\d+\n$")

    def test_lines_are_no_wider_than_asked_for(self):
        for width in (20, 40, 80, 120):
            shown = run("show", input=JOB, environment={"COLUMNS": str(width)}).stdout.decode()
            self.assertLessEqual(max(map(len, shown.splitlines())), width)

    def test_other_encodings_get_ascii(self):
        done = run("show", input=JOB, environment={"LC_ALL": "C"})
        self.assertIn(b"@LUNA=Ren<E9>", done.stdout)
        self.assertTrue(done.stdout.isascii())

    def on_terminal(self, **environment):
        """What the tool writes to a terminal."""
        leader, follower = pty.openpty()
        with tempfile.NamedTemporaryFile() as job:
            job.write(JOB[:-4])
            job.flush()
            subprocess.run([TOOL, "show", job.name], stdout=follower, check=False, env={
                "TERM": "xterm", "COLUMNS": "80", "LC_ALL": "C.UTF-8", **environment})
        os.close(follower)
        return shown_on(leader)

    def test_colour_is_for_terminals(self):
        self.assertIn(b"\x1b[1m", self.on_terminal())
        self.assertIn(b"\x1b[31m", self.on_terminal())
        self.assertNotIn(b"\x1b", self.on_terminal(NO_COLOR="1"))
        self.assertIn(b"\x1b[1m", self.on_terminal(NO_COLOR=""))
        self.assertNotIn(b"\x1b", self.on_terminal(TERM="dumb"))
        self.assertNotIn(b"\x1b", self.on_terminal(TERM=""))
        self.assertNotIn(b"\x1b", run("show", input=JOB, environment={"TERM": "xterm"}).stdout)

    def test_lines_are_as_wide_as_the_terminal(self):
        leader, follower = pty.openpty()
        fcntl.ioctl(follower, termios.TIOCSWINSZ, struct.pack("HHHH", 24, 40, 0, 0))
        subprocess.run([TOOL, "show"], input=JOB, stdout=follower, check=True, env={"LC_ALL": "C"})
        os.close(follower)
        shown = shown_on(leader)
        self.assertEqual(max(map(len, shown.decode().splitlines())), 40)
        self.assertNotIn(b"\x1b", shown)  # a terminal of no kind has no colours

    def test_columns_are_asked_before_the_terminal(self):
        leader, follower = pty.openpty()
        fcntl.ioctl(follower, termios.TIOCSWINSZ, struct.pack("HHHH", 24, 40, 0, 0))
        subprocess.run([TOOL, "show"], input=JOB, stdout=follower, check=True,
                       env={"LC_ALL": "C", "COLUMNS": "60"})
        os.close(follower)
        self.assertIn(max(map(len, shown_on(leader).decode().splitlines())), range(41, 61))

    def test_slow_input_is_counted_on_a_terminal(self):
        leader, follower = pty.openpty()
        begin = time.monotonic()
        with subprocess.Popen([TOOL, "show"], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                              stderr=follower, bufsize=0) as tool:
            fed = 0
            while not select.select([leader], [], [], 0.1)[0]:
                tool.stdin.write(JOB[fed:fed + 1])
                fed += 1
            self.assertGreater(time.monotonic() - begin, 1)  # a second passes in silence
            tool.stdin.write(JOB[fed:])
            tool.stdin.close()
            self.assertIn(b"in order", tool.stdout.read())
        os.close(follower)
        self.assertRegex(shown_on(leader), rb"^(\r0 MB)+\r\x1b\[K$")

    def test_slow_files_are_counted_with_their_size(self):
        leader, follower = pty.openpty()
        with tempfile.NamedTemporaryFile() as job:
            job.write(HEADER + b"%!PS\n")
            job.flush()
            os.truncate(job.name, 512_000_000)
            with subprocess.Popen([TOOL, "show", job.name], stdout=subprocess.DEVNULL,
                                  stderr=follower) as tool:
                while all(os.path.realpath(link) != job.name
                          for link in pathlib.Path(f"/proc/{tool.pid}/fd").iterdir()):
                    time.sleep(0.001)
                tool.send_signal(signal.SIGSTOP)
                time.sleep(1.1)
                tool.send_signal(signal.SIGCONT)
        os.close(follower)
        self.assertRegex(shown_on(leader), rb"^(\r\d+ MB of 512)+\r\x1b\[K$")

    def test_pages_that_the_document_promises(self):
        job = HEADER + REPORT.replace(b"%%Pages: 4", b"%%Pages: 7") + b"\x04" + TRAILER
        self.assertIn(b"pages    4, but the document says 7", run("show", input=job).stdout)

    def test_half_a_line_of_a_truncated_job(self):
        job = HEADER[:HEADER.index(b"@PJL ENTER")]
        for half in (b"@PJL SET JOBATTR=", b"@PJL SET JOBATTR=\"@"):
            done = run("show", input=job + half)
            self.assertEqual(done.returncode, 1)
            self.assertIn(b"half a line, its value is missing", done.stdout)
        done = run("show", input=job + b"@PJL SET HOLD=STO")
        self.assertRegex(done.stdout, rb"\n  @PJL SET HOLD=STO +the printer keeps the job\n")
        done = run("show", input=job + b"@P")
        self.assertIn(b"problems\n  byte ", done.stdout)
        self.assertEqual(done.stdout.count(b"\n  byte "), 1)

    def test_standard_input_has_a_name(self):
        self.assertEqual(run("show", "-", input=JOB).stdout, run("show", input=JOB).stdout)

    def test_copies_of_jobs_with_pjl_features(self):
        copy = (HEADER.replace(b"@PJL ENTER LANGUAGE=POSTSCRIPT\n", b"") +
                b"%!PS-Adobe-3.0\n@PJL SET RET=ON\n%%Page: 1 1\nep\n\x04"
                b"@PJL ENTER LANGUAGE=POSTSCRIPT\n" + TRAILER)
        self.assertIn(b"\n  copy   as the filter stored it, in front of the switch\n  pages  1\n",
                      run("show", input=copy).stdout)

    def test_problems_beyond_the_hundredth_are_counted(self):
        job = HEADER.replace(b"@PJL ENTER", b"no PJL\n" * 103 + b"@PJL ENTER") + REPORT + b"\x04" + TRAILER
        text = run("show", input=job).stdout.decode()
        self.assertIn(", 103 problems\n", text)
        self.assertIn("and 3 more problems\n", text)
        self.assertEqual(json.loads(run("show", "--json", input=job).stdout)["problemsLeftOut"], 3)

    def test_code_of_the_filter_in_the_document(self):
        options = f"{KEY}SeparatorPageListTicket=2 {KEY}SeparatorPageTicket=3"
        text = run("show", input=run_filter("kv1010p", options, REPORT)).stdout.decode()
        self.assertRegex(text, r"by the filter  separator pages \(byte [\d,]+\)\n")
        text = run("show", input=run_filter("kv1010p", DRAFT, REPORT)).stdout.decode()
        self.assertRegex(text, r"by the filter  watermark: the stamp \(byte [\d,]+, 4 times\)\n")

    def test_long_jobs_pass_through(self):
        with tempfile.NamedTemporaryFile() as job:
            job.write(HEADER + b"%!PS\n")
            for _ in range(64):
                job.write(b"0 0 moveto (line) show\n" * 45000)
            job.write(b"\x04" + TRAILER)
            job.flush()
            peak = ["sh", "-c", 'ulimit -v 60000; exec "$0" show "$1"', TOOL, job.name]
            if "asan" in TOOL:
                peak = [TOOL, "show", job.name]
            done = subprocess.run(peak, capture_output=True)
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        self.assertIn(b"66,240,006 bytes", done.stdout)


def replayed(transcript):
    """A transcript as the tool writes it now. A word NAME.ppd in a command is a compiled PPD."""
    replayed = ""
    for command in re.findall(r"^\$ (.*)$", transcript, re.MULTILINE):
        words = [str(ppd(word.removesuffix(".ppd"))) if word.endswith(".ppd") else word
                 for word in shlex.split(command)]
        done = subprocess.run([TOOL, *words[1:]], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, cwd=SOURCE, timeout=120,
                              env={"PATH": os.environ["PATH"], "COLUMNS": "100",
                                   "LC_ALL": "C.UTF-8"})
        shown = re.sub("@CNAM=[^\\\\\"]*", "@CNAM=HOST", done.stdout.decode())
        status = f"[status {done.returncode}]\n" if done.returncode else ""
        replayed += f"$ {command}\n{shown}{status}"
    return replayed


class TranscriptsTest(unittest.TestCase):
    """Whole sessions, letter for letter: tests/Tools/transcripts."""

    def test_transcripts(self):
        transcripts = sorted((SOURCE / "tests/Tools/transcripts").glob("*.txt"))
        self.assertNotEqual(transcripts, [])
        for path in transcripts:
            with self.subTest(path.name):
                self.maxDiff = None
                self.assertEqual(replayed(path.read_text()), path.read_text())


class SecondPairOfEyesTest(unittest.TestCase):
    """The tests' own decoder and the tool see the same."""

    def test_both_decoders_agree(self):
        options = f"{KEY}KPIFCoverCountTicket=1 {KEY}KPIFCoverValueTicket_0=1,0,both,Thick"
        for model in ("kv1010p", "kv2110c", "kv1150p", "kv2024c", "kv4024x"):
            job = run_filter(model, options + " KVSignature=LeftSigFold", REPORT)
            decoded = decode(job)
            shown = json.loads(run("show", "--json", input=job).stdout)
            self.assertEqual(shown["problems"], [])
            self.assertEqual(shown["specialPages"]["size"], len(decoded.special_pages))
            self.assertEqual([line["offset"] for line in shown["header"]],
                             [len(decoded.special_pages) + sum(map(len, decoded.header[:i]))
                              for i in range(len(decoded.header))])
            self.assertEqual(shown["document"]["offset"], decoded.document_offset)
            self.assertEqual(shown["document"]["size"], len(decoded.document))
            self.assertEqual(shown["document"]["pageEnds"], decoded.pages)


class OwnPostScriptTest(unittest.TestCase):
    """What the filter puts into documents is recognised."""

    def own(self, model, options, document=REPORT):
        shown = json.loads(run("show", "--json", input=run_filter(model, options, document)).stdout)
        return {code["meaning"]: code["count"] for code in shown["document"]["ownPostScript"]}

    def test_watermark_of_the_dialog(self):
        self.assertEqual(self.own("kv1010p", DRAFT), {
            "watermark: its procedures": 1, "watermark: a page begins": 4,
            "watermark: the stamp": 4})

    def test_watermark_of_plain_cups(self):
        self.assertEqual(self.own("kv2024c", "KVWatermark=Draft"),
                         {"watermark: what stamps the pages": 1})

    def test_separators_and_auto_fit(self):
        options = (f"{KEY}SeparatorPageListTicket=2 {KEY}SeparatorPageTicket=3 "
                   f"{KEY}BookletMarginSwitchTicket=1 {KEY}BookletMarginMMShiftTicket=3 "
                   f"{KEY}AutoFitSwitchTicket=1")
        self.assertEqual(self.own("kv1010p", options), {
            "separator pages": 1, "auto-fit: shift of the image": 1, "auto-fit: scaling": 1})

    def test_none(self):
        self.assertEqual(self.own("kv1010p", ""), {})


class QueueTest(unittest.TestCase):
    def test_defaults_of_a_queue(self):
        with scheduler.Scheduler() as cups:
            cups.add_queue("office", ppd("kv2024c"))
            cups.run(["lpadmin", "-p", "office", "-o", "KVStaple=LeftDouble",
                      "-o", "KVTrim-default=5"])
            environment = cups.environment()
            explained = json.loads(run("explain", "--json", "--queue", "office", "",
                                       environment=environment).stdout)
            missing = run("explain", "--queue", "nowhere", "", environment=environment)
            cups.run(["lpadmin", "-p", "raw", "-v", "file:///dev/null", "-E"])
            raw = run("explain", "--queue", "raw", "", environment=environment)
            (cups.folder / "etc/ppd/office.ppd").write_text("no PPD\n")
            broken = run("explain", "--queue", "office", "", environment=environment)
        options = {option["name"]: option for option in explained["options"]}
        self.assertEqual((options["KVStaple"]["given"], options["KVStaple"]["source"]),
                         ("LeftDouble", "queue default"))
        self.assertEqual(options["KVTrim"]["writes"][0]["line"], '@PJL SET JOBATTR="@TRMR=5"')
        self.assertEqual((missing.returncode, missing.stdout), (2, b""))
        self.assertIn(b"nowhere", missing.stderr)
        for done, reason in ((raw, b"the queue has no PPD"),
                             (broken, b"the queue's PPD cannot be read")):
            self.assertEqual((done.returncode, done.stdout), (2, b""), reason)
            self.assertIn(reason, done.stderr)


class CompletionTest(unittest.TestCase):
    SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "Tools/JobInfo/kvjobinfo.bash"

    def complete(self, *words):
        """What bash offers for the last of the words."""
        script = (f'. "{self.SCRIPT}"; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); '
                  'compopt() { :; }; _kvjobinfo; printf "%s\\n" "${COMPREPLY[@]}"')
        path = f"{pathlib.Path(TOOL).parent}:{os.environ['PATH']}"
        done = subprocess.run(["bash", "-c", script, "bash", "kvjobinfo", *words], text=True,
                              capture_output=True, env={"PATH": path})
        self.assertEqual(done.stderr, "")
        return done.stdout.split()

    def test_commands_and_their_options(self):
        usage = run("--help").stdout.decode()
        commands = re.findall(r"^  (\w+) ", usage, re.MULTILINE)
        self.assertEqual(self.complete(""), [*commands, "--help", "--version"])
        for command in commands:
            line = re.search(rf"^  {command} (.*)$", usage, re.MULTILINE)[1]
            self.assertEqual(set(self.complete(command, "-")),
                             set(re.findall(r"(?<![\w-])--?[a-z-]+", line)))

    def test_names_of_options(self):
        self.assertEqual(self.complete("explain", "KVTri"), ["KVTrim="])
        self.assertEqual(self.complete("explain", "--ppd", str(ppd("kv1010p")), "KVStap"),
                         ["KVStaple="])


class PageTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.picture = pathlib.Path(self.folder.name) / "100%d page.png"

    def render(self, data, page):
        return run("page", str(page), "-o", self.picture, input=data)

    def test_pages(self):
        pictures = []
        for number in (1, 2, 3, 4):
            done = self.render(JOB, number)
            self.assertEqual((done.returncode, done.stdout, done.stderr), (0, b"", b""))
            pictures.append(self.picture.read_bytes())
        self.assertEqual(len(set(pictures)), 4)
        self.assertTrue(all(picture[:8] == b"\x89PNG\r\n\x1a\n" for picture in pictures))
        self.assertEqual([path.name for path in self.picture.parent.iterdir()], ["100%d page.png"])

    def test_a_document_that_ends_before_its_bytes(self):
        document = b"%!\nquit\n" + b"0 0 moveto\n" * 100000
        done = self.render(HEADER + document + b"\x04" + TRAILER, 1)
        self.assertEqual((done.returncode, done.stdout), (2, b""))
        self.assertIn(b"there is no page 1", done.stderr)

    def test_size_of_a_page(self):
        document = b"%!\n<</PageSize[400 300]>>setpagedevice showpage\n\x04"
        self.assertEqual(self.render(HEADER + document + TRAILER, 1).returncode, 0)
        size = self.picture.read_bytes()[16:24]
        self.assertEqual((int.from_bytes(size[:4], "big"), int.from_bytes(size[4:], "big")),
                         (400, 300))

    def test_what_it_cannot_show(self):
        for data, page, reason in ((JOB, 5, b"no page 5"),
                                   (HEADER + b"%!\nshowpage nosuch\n\x04" + TRAILER, 1, b"does not run"),
                                   (REPORT, 1, b"no job"), (b"", 1, b"empty"),
                                   (None, 1, b"/nowhere/job: No such file")):
            with self.subTest(reason=reason):
                done = (self.render(data, page) if data is not None else
                        run("page", str(page), "-o", self.picture, "/nowhere/job"))
                self.assertEqual((done.returncode, done.stdout), (2, b""))
                self.assertIn(reason, done.stderr)
                self.assertEqual(list(self.picture.parent.iterdir()), [])

    def test_without_what_draws(self):
        folder = self.picture.parent
        (folder / "none").mkdir()
        (folder / "none/bin").mkdir()
        (folder / "none/bin/gs").write_text("#!/bin/sh\nkill -KILL $$\n")
        (folder / "none/bin/gs").chmod(0o755)
        for picture, environment, reason in (
                (self.picture, {"PATH": str(folder / "none")}, b"gs is needed to draw a page"),
                (self.picture, {"PATH": str(folder / "none/bin")}, b"does not run to its end"),
                (folder / "nowhere/page.png", {}, b"No such file or directory"),
                (folder / "none", {}, b"Is a directory")):
            with self.subTest(reason=reason):
                done = run("page", "1", "-o", picture, input=JOB, environment=environment)
                self.assertEqual((done.returncode, done.stdout), (2, b""))
                self.assertIn(reason, done.stderr)
                self.assertEqual([path.name for path in folder.iterdir()], ["none"])


class ExplainTest(unittest.TestCase):
    def explain(self, model, options, *more):
        done = run("explain", "--json", "--ppd", ppd(model), "--user", "alice", "--title", "Report",
                   *more, options)
        self.assertEqual(done.stderr, b"")
        return json.loads(done.stdout)

    def option(self, explanation, name):
        return next(option for option in explanation["options"] if option["name"] == name)

    def lines(self, effects):
        return [effect["line"] for effect in effects]

    def test_secure_print_without_an_owner(self):
        explained = self.explain("kv1010p", f"{KEY}PrintTypeTicketKey=2")
        self.assertEqual(explained["notWritten"][0], {
            "command": "HOLD=STORE", "meaning": "a secure job is held",
            "reason": "the print type is secure print, but the user name is empty"})
        self.assertEqual(self.option(explained, KEY + "PrintTypeTicketKey")["writes"], [])

    def test_what_an_option_causes(self):
        explained = self.explain("kv2024c", "KVStaple=LeftDouble KVPassword=4711")
        staple = self.option(explained, "KVStaple")
        self.assertEqual(self.lines(staple["writes"]), ["@PJL COMMENT KVJOBINFO STAPLE=ON"])
        self.assertEqual(self.lines(staple["insteadOf"]), ["@PJL COMMENT KVJOBINFO STAPLE=OFF"])
        password = self.option(explained, "KVPassword")
        self.assertEqual(self.lines(password["writes"]), [
            "@PJL SET HOLD=STORE", "@PJL SET HOLDTYPE=PRIVATE", '@PJL SET USERNAME="alice"',
            '@PJL SET HOLDENCRYPTKEY="********"', '@PJL SET JOBNAME="Report"'])
        self.assertEqual((staple["source"], password["source"]), ("job", "short option"))
        self.assertNotIn("4711", json.dumps(explained))

    def test_queue_defaults(self):
        explained = self.explain("kv2024c", "")
        staple = self.option(explained, "KVStaple")
        self.assertEqual((staple["source"], staple["given"]), ("queue default", "None"))
        self.assertEqual(self.lines(staple["writes"]), ["@PJL COMMENT KVJOBINFO STAPLE=OFF"])

    def test_conditions_of_texts(self):
        off = f"{KEY}EjectOptionsListTicket=1 "  # delivered as the printer is set
        coil = "KVNumPunchHoles=CoilSmall "
        for options, reasons in (
                (coil + f"{KEY}CoilPunchFaceTicket=x",
                 ['the coil punch face is "x" and must be "false"']),
                (coil, ['the coil punch face is empty and must be "false"']),
                (coil + f"{KEY}CoilPunchFaceTicket=true",
                 ['the num punch holes is "CoilSmall" and must not contain "Coil"',
                  'the coil punch face is "true" and must be "false"'])):
            missed = self.explain("kv1010p", off + options)["notWritten"]
            self.assertEqual([miss["reason"] for miss in missed],
                             ["the eject options list is as the printer is set, but " + reason
                              for reason in reasons])

    def test_conditions_of_numbers(self):
        settings = (f" {KEY}JBAUserSettingRadioBtnTicket=1 {KEY}JBAUserPasswordTextEditTicket=x"
                    f" {KEY}JBAAdminUserSettingRadioBtnTicket=1")
        box = "the mng type list box is "
        for kind, user, reasons in (
                (2, 1, [f"{box}the user's, but the info {what}" for what in (
                    "list is not given and must be none", "list is not given and must be billing",
                    "list is not given and must be user's account",
                    "list is not given and must be all",
                    "set lbox is not given and must be the user is unknown")]),
                (2, 2, [f"{box}the user's, but the user ID list ctrl is who is named and must be "
                        "who is logged in", f"{box}the user's, but the user ID is empty"]),
                (3, 2, [f"the job info radio btn admin is yes, but {box}3 and must be the "
                        "administrator's",
                        f"the job info radio btn is yes, but {box}3 and must be the user's"])):
            options = (f"{KEY}JBAManageTypeListTicketKey={kind} {KEY}JBAUserIDListCtrlTicket={user}"
                       f" {KEY}JBAAdminUserIDListCtrlTicket={user}")
            missed = self.explain("kv1010p", options + settings)["notWritten"]
            self.assertEqual([miss["reason"] for miss in missed], reasons)
        missed = self.explain("kv1010p", f"{KEY}PrintTypeTicketKey=1 "
                                         f"{KEY}PrintTypeUserNameTicketKey=bob")["notWritten"]
        reason = "the user name is given, but the print type is print at once"
        self.assertEqual([miss["reason"] for miss in missed],
                         [reason + " and must be secure print", reason + " and must be sample print",
                          reason])

    def test_defaults_without_a_job(self):
        done = run("explain", "--json", "--ppd", ppd("kv1010p"), "--copies", "3")
        lines = [effect["line"] for effect in json.loads(done.stdout)["always"]]
        self.assertIn("@PJL JOB MODE=PRINTER", lines)

    def test_text_on_code_of_the_ppd(self):
        text = run("explain", "--ppd", ppd("kv2024c"), "PageSize=A5").stdout.decode()
        self.assertRegex(text, "PageSize=A5: job, .*\n  document  CUPS puts the PPD's code for it there\n")

    def test_text_on_what_changes_nothing(self):
        text = run("explain", "--ppd", ppd("kv1010p"), "KVTrim=5 Zebra=").stdout.decode()
        self.assertRegex(text, r'KVTrim=5: job, works only where [^\n]*KVFrontEnd=CUPS\n  changes ')
        self.assertIn("\nZebra: job, none of the filter's\n", text)

    def test_without_a_ppd(self):
        trim = run("explain", "KVFrontEnd=CUPS KVTrim=5").stdout.decode()
        self.assertIn("\nKVTrim=5: short option, ", "\n" + trim)
        self.assertIn('  writes  @PJL SET JOBATTR="@TRMR=5"', trim)
        switch = self.option(self.explain("kv1010p", "KVFrontEnd=CUPS"), "KVFrontEnd")
        self.assertTrue(switch["known"])

    if "asan" not in TOOL:  # where a run for each of two hundred options takes long
        def test_no_more_options_than_anyone_reads(self):
            explained = self.explain("kv1010p", " ".join(f"Zebra{i}=1" for i in range(250)))
            self.assertEqual(len(explained["options"]), 200)

    def test_secrets_are_told_from_other_words(self):
        given = {option["name"]: option["given"] for option in self.explain(
            "kv1010p", "Spine=1 MyPin=2 KVPassword=")["options"]}
        self.assertEqual((given["Spine"], given["MyPin"], given["KVPassword"]), ("1", "********", ""))
        empty = self.explain("kv1010p", f"{KEY}PrintTypePasswordTicketKey=")
        key = self.option(empty, KEY + "PrintTypePasswordTicketKey")["keys"][0]
        self.assertEqual(key["value"], "")

    def test_text_on_options_that_are_none(self):
        account = f"{KEY}JBAAccountIDTextEditTicket"
        text = run("explain", "--ppd", ppd("kv1010p"),
                   f"Zebra=1 {account}=日本 {KEY}JBAManageTypeListTicketKey=x").stdout.decode()
        self.assertIn("Zebra=1: job, none of the filter's\n  changes  nothing\n", text)
        self.assertIn("  printer gets  nothing\n                dropped: nothing of it is in the "
                      "printer's letters\n", text)
        self.assertIn("  printer gets  0\n                read as a number as far as it is one\n", text)

    def test_slips(self):
        explained = self.explain("kv2024c", "KVStapel=LeftDouble Colour=Red")
        slip = self.option(explained, "KVStapel")
        self.assertEqual((slip["known"], slip["nearest"]), (False, "KVStaple"))
        self.assertNotIn("nearest", self.option(explained, "Colour"))
        short = self.option(self.explain("kv1010p", "sds=1"), "sds")
        self.assertNotIn("nearest", short)  # two letters of three are no slip
        for number, known in (("12", True), ("x", False)):
            name = f"{KEY}KPIFCoverValueTicket_{number}"
            self.assertEqual(self.option(self.explain("kv1010p", name + "=1"), name)["known"], known)
        secret = self.explain("kv1010p", f"{KEY}PrintTypePaswordTicketKey=4711")
        self.assertNotIn("4711", json.dumps(secret))
        key = self.explain("kv1010p", f"{KEY}PrintTypePasswordTicketKey=4711")
        self.assertNotIn("4711", json.dumps(key))

    def test_short_options_need_plain_cups(self):
        meaning = self.option(self.explain("kv1010p", "KVTrim=5"), "KVTrim")["meaning"]
        self.assertIn('*KVFrontEnd: "CUPS"', meaning)

    def test_values_that_are_cut_and_dropped(self):
        account = (f"{KEY}JBAManageTypeListTicketKey=2 {KEY}JBAUserSettingRadioBtnTicket=1 "
                   f"{KEY}JBAAccountIDTextEditTicket=")
        for text, value, note in (("Grüße", "Grüße", None),
                                  ("日本x", "x", "dropped: 2 letters that the printer lacks"),
                                  ("9" * 40, "9" * 32, "cut to 32 bytes"),
                                  ("9" * 1100, "9" * 32,
                                   "cut to 1023 bytes before it is read; cut to 32 bytes"),
                                  ("/0", "", None),
                                  ("日本", "", "dropped: nothing of it is in the printer's letters")):
            explained = self.explain("kv1010p", account + text)
            key = self.option(explained, KEY + "JBAAccountIDTextEditTicket")["keys"][0]
            self.assertEqual((key["value"], key.get("note")), (value, note))
            self.assertIn(f'@PJL SET JOBATTR="@DAID={value}"', self.lines(explained["tells"]))

    def test_values_that_are_no_texts(self):
        user = f"{KEY}JBAUserIDTextEditTicket"
        keys = self.option(self.explain("kv1010p", user + "=bob"), user)["keys"]
        self.assertEqual([key["value"] for key in keys], ["given", "bob"])
        kind = f"{KEY}JBAManageTypeListTicketKey"
        key = self.option(self.explain("kv1010p", kind + "="), kind)["keys"][0]
        self.assertEqual((key["value"], key["note"]), ("0", "read as a number as far as it is one"))
        account = f"{KEY}JBAAccountIDTextEditTicket"
        lost = self.explain("kv2024c", account + "=collate" + "9" * 250)
        self.assertEqual(self.option(lost, account)["keys"][0]["value"], "")

    def test_refused_job(self):
        explained = self.explain("kv2024c", "KVPrintMode=Secure KVStaple=LeftDouble")
        self.assertTrue(explained["refused"])
        self.assertEqual((explained["tells"], self.option(explained, "KVStaple")["writes"]), ([], []))
        self.assertRegex(explained["messages"][0], "^ERROR: .*KVPassword")

    def test_round_trip(self):
        """What explain predicts is what show reads from the filter's output, line for line."""
        chance = random.Random(7)
        for model, pool in (("kv1010p", DIALOG), ("kv2110c", DIALOG), ("kv1150p", DIALOG),
                            ("kv1024p", DIALOG + SHORT), ("kv2024c", DIALOG + SHORT),
                            ("kv4024x", DIALOG + SHORT)):
            for _ in range(4):
                options = " ".join(chance.sample(pool, chance.randint(1, 12)))
                with self.subTest(model=model, options=options):
                    self.check_round_trip(model, options)

    def test_round_trip_of_postscript_on_sheets_of_several_pages(self):
        layout = "com.apple.print.PrintSettings.PMLayout"
        options = (f"number-up=2 {layout}Rows..n.=1 {layout}Columns..n.=2 "
                   f"{KEY}SeparatorPageListTicket=2 {KEY}SeparatorPageTicket=3")
        self.assertIn("PostScript", self.lines(self.explain("kv1010p", options)["tells"]))
        self.check_round_trip("kv1010p", options)

    def check_round_trip(self, model, options):
        environment = {**os.environ, "PPD": str(ppd(model))}
        pstops = scheduler.server_bin() / "filter/pstops"
        document = subprocess.run([pstops, "1", "alice", "Report", "1", options], env=environment,
                                  input=REPORT, capture_output=True).stdout
        job = run_filter(model, options, document)
        told = self.lines(self.explain(model, options)["tells"])
        if not job:
            self.assertEqual(told, [])
            return
        shown = json.loads(run("show", "--json", input=job).stdout)
        lines = [page["what"] for page in shown.get("specialPages", {}).get("pages", [])]
        lines += [line["line"].replace("<ESC>%-12345X", "") for line in shown["header"]]
        self.assertEqual([line for line in told if line != "PostScript"], lines)
        own = {code["meaning"] for code in shown["document"]["ownPostScript"]}
        self.assertEqual("PostScript" in told, bool(own))


DIALOG = [
    "sides=two-sided-long-edge", "number-up=2", "number-up=4", "collate=true", "nocollate",
    "KVStaple=LeftDouble", "KVStaple=Nonsense", "KVPunch=Left", "KVNumPunchHoles=2Holes",
    "KVSignature=LeftSigFold", "KVSigVol=5Sheets", "KVColorMode=Color", "KVColorMode=Black",
    "KVLineWeightAdjustment=Weakly2", "orientation-requested=4", "DuplexBindingEdge..n.=2",
    "KVPBindPosition=BindLeft", "KVPBindTrimming=3EdgeCut", "KVPBindPageSize=A4",
    f"{KEY}PrintTypeTicketKey=2", f"{KEY}PrintTypeTicketKey=5", f"{KEY}PrintTypeUserNameTicketKey=bob",
    f"{KEY}PrintTypePasswordTicketKey=1234", f"{KEY}PrintTypeMBNTicketKey=12",
    f"{KEY}TrimmerSwitchTicket=1", f"{KEY}TrimmerMMCuttingSizeTicket=7",
    f"{KEY}OffsetStackingListTicket=4", f"{KEY}EjectOptionsListTicket=3",
    f"{KEY}JBAManageTypeListTicketKey=2", f"{KEY}JBAUserSettingRadioBtnTicket=1",
    f"{KEY}JBAAccountIDTextEditTicket=Verkauf", f"{KEY}SeparatorPageListTicket=2",
    f"{KEY}SeparatorPageTicket=3", f"{KEY}KPIFCoverCountTicket=1",
    f"{KEY}KPIFCoverValueTicket_0=1,0,both,Thick", "Foo=Bar", "KVStapel=Left",
]
SHORT = ["KVPassword=4711", "KVPrintMode=Sample", "KVPrintMode=Mailbox", "KVMailbox=12", "KVTrim=5",
         "KVAccountUser=Login", "KVAccountID=4711", "KVOffsetStacking=Pages:10", "KVDelivery=FaceUp",
         "KVSeparator=3", "KVWatermark=Draft", "KVFrontCover=Plain", "print-color-mode=monochrome",
         "KVTonerSaver=Mode2"]


class OptionsTest(unittest.TestCase):
    def test_all_rows_are_listed(self):
        options = json.loads(run("options", "--json").stdout)
        names = {option["name"] for option in options}
        self.assertLessEqual({"KVWatermark", "KVPrintMode", "number-up", KEY + "PrintTypeTicketKey",
                              KEY + "KPIFCoverValueTicket_"}, names)
        for row_file in SOURCE.glob("Modules/*/*Ticket*.def"):
            for key in re.findall(r'KV_TICKET\s+"(\w+)"', row_file.read_text()):
                self.assertIn(KEY + key, names)
        self.assertEqual([option["name"] for option in options if option["secret"]
                          and option["name"].startswith("KV")],
                         ["KVPassword", "KVAccountPassword", "KVStoragePassword"])

    def test_what_json_says_of_an_option(self):
        for option in json.loads(run("options", "--json").stdout):
            self.assertEqual(list(option), ["group", "name", "values", "meaning", "default",
                                            "example", "secret"])

    def test_json_keeps_the_letters_of_the_ppd(self):
        with tempfile.NamedTemporaryFile() as file:
            file.write(ppd("kv2024c").read_bytes().replace(
                b"*OpenUI *KVStaple/Staple:", "*OpenUI *KVStaple/Heftgerät:".encode("latin1")))
            file.flush()
            shown = run("options", "--json", "--ppd", file.name).stdout.decode()
        self.assertEqual([line.strip() for line in shown.splitlines() if "Heft" in line],
                         ['"meaning": "Heftgerät",'])

    def test_options_of_a_queue(self):
        options = json.loads(run("options", "--json", "--ppd", ppd("kv2024c")).stdout)
        staple = next(option for option in options if option["name"] == "KVStaple")
        self.assertIn("LeftDouble", staple["values"])
        self.assertEqual(staple["default"], "None")
        plain = json.loads(run("options", "--json", "--ppd", ppd("kv1010p")).stdout)
        self.assertNotIn("KVWatermark", {option["name"] for option in plain})

    def test_text(self):
        shown = run("options", environment={"COLUMNS": "80"}).stdout.decode()
        self.assertIn("\n  KVStaple", shown)
        self.assertLessEqual(max(map(len, shown.splitlines())), 80)

    def test_text_says_all_that_json_does(self):
        arguments = ["options", "--ppd", ppd("kv2024c")]
        options = json.loads(run(*arguments, "--json").stdout)
        shown = run(*arguments, environment={"COLUMNS": "100000"}).stdout.decode()
        rows = []
        group = None
        for option in options:
            if option["group"] != group:
                rows.append(option["group"])
            group = option["group"]
            words = option["meaning"]
            words += f": {option['values']}" if option["values"] else ""
            words += f"; if not given, {option['default']}" if option["default"] else ""
            words += f". Example: {option['example']}" if option["example"] else ""
            rows.append(f"{option['name']} {words}")
        self.assertEqual([re.sub(" +", " ", line).strip() for line in shown.splitlines()],
                         [re.sub(" +", " ", row).strip() for row in rows])
        self.assertEqual({option["group"] for option in options} & {
            "Short options", "The queue's options", "Print type"}, {
                "Short options", "The queue's options", "Print type"})


if __name__ == "__main__":
    unittest.main()
