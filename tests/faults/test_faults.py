# SPDX-License-Identifier: Apache-2.0
"""Every call of the real filter fails in turn: system calls by strace, which makes the one that it
is told to fail return an error, the others by a library that is preloaded (Preload.cpp). What then
comes out, what people hear and how the filter ends stands in faults.tsv."""

import collections
import concurrent.futures
import csv
import fcntl
import os
import pathlib
import re
import resource
import shutil
import signal
import subprocess
import tempfile
import unittest

HERE = pathlib.Path(__file__).resolve().parent
FILTER = os.environ["KVFILTER_BINARY"]
LIBRARY = pathlib.Path(os.environ["KVFILTER_BUILD_DIR"]) / "tests/kvfault.so"
TIMEOUT = 60  # seconds; a job takes a hundredth of one, byte by byte one or two

TRAILER = b"\x1b%-12345X@PJL EOJ\n"
PAGE = b"bp\n" + b"".join(b"%d %d moveto (words) show\n" % (n, n) for n in range(4000)) + b"ep\n"
DOCUMENT = b"%!PS-Adobe-3.0\n" + PAGE * 3 + b"\x04"

# A job with something from most modules, for what they do without memory.
KEY = "com.korvell.tav.printsettings."
WATERMARK = {
    "Name": "draft", "Type": 0, "OnlyFirst": 0, "Text": "(DRÄFT)", "Font": "Courier",
    "FontSize": 60, "ColorR": 0, "ColorG": 0, "ColorB": 0, "Density": 100, "Angle": 0,
    "Orientation": 1, "PaperWidth": 612, "PaperHeight": 792, "Width": 180, "Height": 34,
    "hOffset": 0, "vOffset": 0,
}
OPTIONS = " ".join(["number-up=4",
                    *(f"{KEY}WMARK{name}Ticket={value}" for name, value in WATERMARK.items())])

# What strace fails, and with what.
SYSTEM_CALLS = {
    "openat": ("EMFILE", "EINTR"),
    "read": ("EIO", "EINTR"),
    "write": ("ENOSPC", "EINTR"),
    "close": ("EIO",),
    "mmap": ("ENOMEM",),
    "munmap": ("EINVAL",),
    "fchmod": ("EPERM",),
    "unlink": ("EACCES",),
    "poll": ("EINTR", "ENOMEM"),
    "lseek": ("ESPIPE",),
    "sendfile": ("EIO", "EINTR", "ENOSYS"),
    "pipe2": ("EMFILE",),
    "ioctl": ("EINVAL",),
    "tee": ("EINVAL", "ENOMEM", "EINTR"),
    "splice": ("EINVAL", "EIO", "EINTR"),
    "clone3": ("EAGAIN",),
}

Mode = collections.namedtuple("Mode", "pass_ cups copy pipes", defaults=[False])
MODES = [Mode(pass_, cups, copy) for pass_ in ("plain", "store") for cups in ("off", "on")
         for copy in (False, True)]
# From pipe to pipe, as CUPS runs its filters, the document is passed on within the kernel.
PIPES = [Mode("plain", cups, False, True) for cups in ("off", "on")]
Fault = collections.namedtuple("Fault", "call way target")
Result = collections.namedtuple("Result", "output errors status files trace allocations")


class Table:
    """The rows of faults.tsv."""

    def __init__(self):
        with open(HERE / "faults.tsv", newline="") as file:
            lines = (line for line in file if not line.startswith("#") and line.strip())
            self.rows = list(csv.DictReader(lines, delimiter="\t"))
        self.used = set()

    def find(self, fault, mode):
        """The numbers of the rows for a fault: those that begin as the first that matches."""
        facts = {"call": fault.call, "way": fault.way, "target": fault.target,
                 "pass": mode.pass_, "cups": mode.cups}
        for row in self.rows:
            if all(row[name] == "*" or value in row[name].split("|")
                   for name, value in facts.items()):
                return [number for number, other in enumerate(self.rows)
                        if all(other[name] == row[name] for name in facts)]
        return []

    def holds(self, number, kind, status, said, left):
        """Whether a row says what has become of a job."""
        row = self.rows[number]
        agrees = (kind in row["output"].split("|") and str(status) in row["status"].split("|")
                  and re.fullmatch(row["message"] or "", said) and left == row["left"])
        if agrees:
            self.used.add(number)
        return agrees


# A small one, for every line that is read is a call to fail.
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
*OpenUI *PageSize/Page Size: PickOne
*DefaultPageSize: A4
*PageSize A4/A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageSize
*DefaultImageableArea: A4
*ImageableArea A4/A4: "0 0 595 842"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595 842"
"""


def wide_pipe():
    """Both ends of a pipe that holds all of a job."""
    ends = os.pipe()
    fcntl.fcntl(ends[1], fcntl.F_SETPIPE_SZ, 1 << 20)
    return open(ends[0], "rb"), open(ends[1], "wb", buffering=0)


def filled_pipe(data):
    """The end of a pipe that `data` come out of."""
    end, other = wide_pipe()
    with other:
        assert other.write(data) == len(data)
    return end


class Bench:
    """Runs jobs, each in a folder of its own."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        (self.folder / "document").write_bytes(DOCUMENT)
        for pass_, value in (("plain", 0), ("store", 1)):
            (self.folder / f"{pass_}.ppd").write_text(PPD.format(decomposition=value))

    def run(self, mode, tracer=(), faults=(), limit=None, options=OPTIONS):
        """Runs a job behind `tracer` with the environment `faults`; no file grows beyond `limit`.
        Plain CUPS is named by the job, so that it is known even if the PPD cannot be read."""
        place = pathlib.Path(tempfile.mkdtemp(dir=self.folder))
        (place / "temp").mkdir()
        environment = {"PATH": os.environ["PATH"], "TMPDIR": str(place / "temp"), "TZ": "UTC",
                       "PPD": str(self.folder / f"{mode.pass_}.ppd"),
                       **dict(faults)}
        if mode.copy:
            environment["KVFAULT_COPY"] = "1"
        options += " KVFrontEnd=CUPS" if mode.cups == "on" else ""
        command = [FILTER, "1", "alice", "Grüße", "1", options]
        if tracer:
            command = [*tracer, "-o", str(place / "trace"), "-E", f"LD_PRELOAD={LIBRARY}", *command]
        else:
            environment |= {"LD_PRELOAD": str(LIBRARY), "KVFAULT_REPORT": str(place / "report")}

        def prepare():
            if limit is not None:
                signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
                resource.setrlimit(resource.RLIMIT_FSIZE, (limit, limit))

        with filled_pipe(DOCUMENT) if mode.pipes else open(self.folder / "document", "rb") \
                as document, open(place / "output", "wb") as file:
            drain, output = wide_pipe() if mode.pipes else (None, file)
            done = subprocess.run(command, stdin=document, stdout=output, stderr=subprocess.PIPE,
                                  env=environment, timeout=TIMEOUT, preexec_fn=prepare)
            if mode.pipes:
                output.close()
                with drain:
                    file.write(drain.read())

        def text(name):
            return (place / name).read_text(errors="replace") if (place / name).exists() else ""

        files = {path.name: path.stat().st_mode & 0o777 for path in (place / "temp").iterdir()}
        errors = done.stderr.decode(errors="replace")
        result = Result((place / "output").read_bytes(), errors, done.returncode, files,
                        text("trace"), [int(word) for word in text("report").split()])
        shutil.rmtree(place)
        return result


def target_of(line):
    """What the call of a line of strace's is about."""
    if ".ppd" in line:
        return "ppd"
    if "/private/tmp/" in line:
        return "other"
    if "kvPPDPJL" in line:
        return "store"
    if re.search(r"/kv\d{14}", line):
        return "copy"
    if re.search(r"\(0<|fd=0<", line):
        return "document"
    if re.search(r"\(1<", line):
        return "output"
    if re.search(r"\(2<", line):
        return "errors"
    if re.search(r"<pipe:", line):
        return "look"
    return "other"


def injected_target(trace):
    """What the call that strace made fail is about, or None."""
    lines = [line for line in trace.splitlines() if "(INJECTED)" in line]
    return target_of(lines[0]) if lines else None


def calls_of_main(trace):
    """The system calls from the beginning of main on: (name, number, target). Those of the
    resolver's thread are left to the library that fails it."""
    counts, calls = collections.Counter(), []
    started = False
    thread = trace.split()[0]
    for line in trace.splitlines():
        match = re.match(rf"{thread} +(\w+)\(", line)
        if not match:
            continue
        started = started or "F_GETFD" in line  # the filter's first act
        counts[match[1]] += 1
        if started and match[1] in SYSTEM_CALLS:
            calls.append((match[1], counts[match[1]], target_of(line)))
    return calls


def matters(call, target, mode):
    """Whether to fail the calls about a target in a mode: what all modes have in common fails in
    one."""
    if mode.pipes:
        return call in ("pipe2", "ioctl", "tee", "splice") or target == "look"
    if mode.copy:
        return target == "copy"
    return target != "other" or mode.pass_ == "store"


def kind_of(output, whole):
    """How an output differs from the whole job."""
    if output == whole:
        return "whole"
    if whole.startswith(output):
        return "cut"
    if output.endswith(TRAILER):
        front = output[:-len(TRAILER)]
        if not front.endswith(b"\x04") and whole.startswith(front):
            return "ended"
        if whole.startswith(front.removesuffix(b"\x04")):
            return "ended as if whole"
    start = os.path.commonprefix([output, whole])
    if whole.endswith(output[len(start):]):
        return "with a hole"
    return "other, with its trailer" if output.endswith(TRAILER) else "something else"


def messages(errors):
    return [line for line in errors.splitlines()
            if not line.startswith(("PAGE:", "DEBUG:", "INFO:", "ATTR:"))]


def strace(call=None, error=None, number=None):
    """The command that traces all calls, or makes the `number`th `call` fail with `error`."""
    command = ["strace", "-f", "--seccomp-bpf", "-y", "-qq"]
    if call is None:
        return [*command, "-e", f"trace=fcntl,{','.join(SYSTEM_CALLS)}"]
    return [*command, "-e", f"trace={call}", "-e", f"inject={call}:error={error}:when={number}"]


class FaultsTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.bench = Bench(cls.enterClassContext(tempfile.TemporaryDirectory()))
        cls.table = Table()
        cls.whole = {mode: cls.bench.run(mode) for mode in MODES + PIPES}
        cls.pool = cls.enterClassContext(concurrent.futures.ThreadPoolExecutor(os.cpu_count()))
        cls.runs = 0

    @classmethod
    def tearDownClass(cls):
        print(f"{cls.runs} faults")

    def check(self, fault, mode, result):
        """The result is what the table says."""
        type(self).runs += 1
        rows = self.table.find(fault, mode)
        kind = kind_of(result.output, self.whole[mode].output)
        said = "\n".join(messages(result.errors))
        left = "store" if any(name.startswith("kvPPDPJL") for name in result.files) else "-"
        what = (f"{fault} {mode}: {kind}, {result.status}, {said!r}, {result.files}, "
                f"{len(result.output)} bytes; expected {[self.table.rows[n] for n in rows]}")
        self.assertTrue([n for n in rows if self.table.holds(n, kind, result.status, said, left)],
                        what)
        for permissions in result.files.values():
            self.assertIn(permissions, (0o600, 0o676), what)
        if mode.cups == "on":
            self.assertLessEqual(result.errors.count("PAGE:"), result.output.count(b"\nep\n"), what)

    def check_all(self, work):
        """Runs and checks (fault, mode, tracer, environment, limit of files) in parallel."""
        results = self.pool.map(lambda item: self.bench.run(*item[1:]), work)
        for (fault, mode, *_), result in zip(work, results):
            with self.subTest(fault=fault, mode=mode):
                if fault.target is None:
                    fault = fault._replace(target=injected_target(result.trace))
                self.check(fault, mode, result)

    def test_whole_job(self):
        for mode, whole in self.whole.items():
            with self.subTest(mode=mode):
                self.assertEqual((whole.status, messages(whole.errors)), (0, []))
                self.assertEqual(whole.output.count(PAGE[:-3]), 3)
                self.assertEqual(whole.errors.count("PAGE:"), 3, whole.errors)
                self.assertEqual(list(whole.files.values()), [0o676] if mode.copy else [])

    def test_system_calls(self):
        work = []
        for mode in MODES + PIPES:
            calls = calls_of_main(self.bench.run(mode, strace()).trace)
            chosen = sorted({(call, number) for call, number, target in calls
                             if matters(call, target, mode)})
            work += [(Fault(call, error, None), mode, strace(call, error, number))
                     for call, number in chosen for error in SYSTEM_CALLS[call]]
        self.assertGreater(len(work), 300)
        self.check_all(work)

    def test_a_document_that_was_taken_and_cannot_be_had(self):
        work = []
        for mode in PIPES:
            command = [*strace(), "-e", "inject=tee:error=EIO:when=1"]
            calls = calls_of_main(self.bench.run(mode, command).trace)
            after = calls[[call for call, _, _ in calls].index("tee"):]
            read = next(number for call, number, _ in after if call == "read")
            work.append((Fault("tee+read", "EIO", "look"), mode,
                         [*command, "-e", f"inject=read:error=EIO:when={read}"]))
        self.check_all(work)

    def test_a_store_that_cannot_be_read_back(self):
        self.check_all([(Fault("sendfile+pread", "EIO", "store"), mode, (),
                         {"KVFAULT_STORE": "fail"}) for mode in MODES if mode.pass_ == "store"])

    def test_allocations(self):
        work = []
        for mode in MODES:
            if not mode.copy and mode.pass_ == "plain":
                first = 1
                for target, last in zip(("names", "client", "job"), self.whole[mode].allocations):
                    self.assertGreater(last, first)
                    work += [(Fault("malloc", "ENOMEM", target), mode, (),
                              {"KVFAULT_MALLOC": str(number)}) for number in range(first, last + 1)]
                    first = last + 1
        self.check_all(work)

    def test_a_confidential_job_without_memory(self):
        """It is kept for its owner or not printed, and somebody is told."""
        mode, said = Mode("plain", "on", False), set()
        whole = self.bench.run(mode, options="KVPassword=4711")
        for number in range(1, whole.allocations[-1] + 1):
            result = self.bench.run(mode, faults={"KVFAULT_MALLOC": str(number)},
                                    options="KVPassword=4711")
            said.update(messages(result.errors))
            if b"%!PS" in result.output:
                self.assertIn(b'@PJL SET HOLDENCRYPTKEY="4711"\r\n', result.output, number)
        self.assertIn("ERROR: no memory for the owner and the password of a confidential job", said)

    def test_library_calls(self):
        ways = [("getaddrinfo", "fail"), ("getaddrinfo", "hang"), ("gethostname", "fail"),
                ("gethostname", "latin"), ("time", "fail"), ("time", "late")]
        self.check_all([(Fault(call, way, "library"), mode, (), {f"KVFAULT_{call}": way})
                        for call, way in ways for mode in MODES])

    def test_short_reads(self):
        self.check_all([(Fault("read", "short", "document"), mode, (), {"KVFAULT_SHORT": size})
                        for size in ("1", "7", "8065", "65536") for mode in MODES] +
                       [(Fault("splice", "short", "document"), mode, (), {"KVFAULT_SHORT": size})
                        for size in ("8065", "65536") for mode in PIPES])

    def test_files_that_may_not_grow(self):
        self.check_all([(Fault("write", "short", "files"), mode, (), {}, limit)
                        for limit in (1, 100, 4096, 65536, 200000) for mode in MODES])

    def test_zz_every_row_is_used(self):
        rows = set(range(len(self.table.rows)))
        self.assertEqual([self.table.rows[n] for n in sorted(rows - self.table.used)], [])


if __name__ == "__main__":
    unittest.main()
