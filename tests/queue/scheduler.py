# SPDX-License-Identifier: Apache-2.0
"""A CUPS scheduler of a test's own, with queues whose printer is the test.

    with Scheduler() as scheduler:
        queue = scheduler.add_queue("office", ppd("kv1010p"))
        job = queue.print(sample("report"), options=["number-up=2"], copies=2)
        assert job.output().startswith(b"\\x1b%-12345X")
        assert job.pages() == 8

The scheduler listens on a loopback port, keeps all its files in one temporary folder and ends with
the `with` block. Queues are printed to through lp; what their backend sends is received by a
listener of the queue's own. Every wait has a time-out: a broken job fails and does not hang.

The test's environment names the filter under test (KVFILTER_BINARY) and the folder of the sample
PPDs (KVFILTER_PPD_DIR).
"""

import grp
import os
import pathlib
import pwd
import re
import shutil
import socket
import subprocess
import sys
import tempfile
import threading
import time
import unittest

SOURCE_DIR = pathlib.Path(__file__).resolve().parents[2]
PATH = os.defpath + ":/usr/sbin:/sbin"
TIMEOUT = 60  # seconds; what is awaited takes well under one
SKIPPED = 77  # the exit status that ctest takes as "skipped"


def ppd(model):
    """The path of a sample PPD."""
    return pathlib.Path(os.environ["KVFILTER_PPD_DIR"]) / f"{model}.ppd"


def sample(name):
    """The path of a sample document."""
    return SOURCE_DIR / "samples" / f"{name}.ps"


def server_bin():
    """Where the system keeps filters and backends."""
    config = ["cups-config", "--serverbin"]
    return pathlib.Path(subprocess.check_output(config, text=True).strip())


def shared_folder():
    """A folder for temporary files that the scheduler's user can reach and run programs in."""
    for folder in (tempfile.gettempdir(), "/tmp", "/var/tmp"):
        path = pathlib.Path(folder).resolve()
        reachable = all(part.stat().st_mode & 0o001 for part in (path, *path.parents))
        if reachable and not os.statvfs(path).f_flag & os.ST_NOEXEC:
            return path
    raise RuntimeError("no folder for temporary files that all users can reach")


def await_true(condition, what, timeout=TIMEOUT):
    """Returns the first true value of `condition()`; raises TimeoutError with `what()` in it."""
    deadline = time.monotonic() + timeout
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > deadline:
            raise TimeoutError(what())
        time.sleep(0.05)


class Printer:
    """Listens where a queue's backend connects; keeps what each connection, thus each job, sent."""

    def __init__(self):
        self._listener = socket.create_server(("127.0.0.1", 0))
        self.uri = f"socket://127.0.0.1:{self._listener.getsockname()[1]}/?snmp=false"
        self.jobs = []
        self.ready = threading.Event()  # cleared, the printer takes connections but no data
        self.ready.set()
        threading.Thread(target=self._serve, daemon=True).start()

    def _serve(self):
        while True:
            try:
                connection, _ = self._listener.accept()
            except OSError:  # closed
                return
            self.ready.wait()
            with connection:
                self.jobs.append(self._receive(connection))

    @staticmethod
    def _receive(connection):
        received = bytearray()
        try:
            while data := connection.recv(1 << 16):
                received += data
        except ConnectionResetError:  # the job was cancelled
            pass
        return bytes(received)

    def close(self):
        self.ready.set()
        self._listener.shutdown(socket.SHUT_RDWR)
        self._listener.close()


class Job:
    """A job that has been handed to its queue."""

    def __init__(self, scheduler, queue, path, number, place):
        self.number = number
        self._scheduler = scheduler
        self._queue = queue
        self._path = path
        self._place = place  # among the jobs of its queue

    def output(self, timeout=TIMEOUT):
        """What the printer received of the job, which must have succeeded. kvjobinfo, too, finds
        nothing wrong with it."""
        self.wait(timeout)
        job = self.received(timeout)
        shown = subprocess.run([os.environ["KVJOBINFO_BINARY"], "show"], input=job, timeout=TIMEOUT,
                               stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        if shown.returncode != 0:
            raise AssertionError(f"job {self.number}: {shown.stdout.decode(errors='replace')}")
        return job

    def received(self, timeout=TIMEOUT):
        """What the printer received, all or not."""
        received = self._queue.printer.jobs
        await_true(lambda: len(received) > self._place, self.log, timeout)
        return received[self._place]

    def end(self, timeout=TIMEOUT):
        """Waits until the scheduler has done with the job; returns what it says of it."""
        done = re.compile(rf"\[Job {self.number}\] (Job (?:completed|stopped|aborted|canceled).*)")
        return await_true(lambda: done.search(self._scheduler.error_log()), self.log, timeout)[1]

    def wait(self, timeout=TIMEOUT):
        """Waits until the scheduler has done with the job, which must have succeeded."""
        end = self.end(timeout)
        if end != "Job completed.":
            raise AssertionError(f"job {self.number}: {end}\n{self.log()}")

    def cancel(self):
        self._scheduler.run(["cancel", str(self.number)])

    def log(self):
        """The job's lines of the error log."""
        mark = f"[Job {self.number}]"
        lines = self._scheduler.error_log().splitlines()
        return "\n".join(line for line in lines if mark in line)

    def arguments(self):
        """What every filter of the job was started with: job id, user, title, copies, options."""
        self.wait()
        return [re.search(rf'argv\[{n}\]="(.*)"', self.log())[1] for n in range(1, 6)]

    def document(self):
        """What the filter reads: the output of pstops, run by hand as the scheduler runs it."""
        environment = {"PPD": str(self._scheduler.folder / f"etc/ppd/{self._queue.name}.ppd")}
        command = [server_bin() / "filter/pstops", *self.arguments(), self._path]
        return subprocess.run(command, env=environment, check=True, timeout=TIMEOUT,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout

    def pages(self):
        """How many pages the page log counts for the job, copies included."""
        self.wait()
        total = re.compile(rf"^{self.number}\ttotal\t(\d+)$", re.MULTILINE)
        return int(await_true(lambda: total.search(self._scheduler.page_log()), self.log)[1])


class PrintQueue:
    """A queue of the scheduler. It prints its jobs one after the other."""

    def __init__(self, scheduler, name):
        self.name = name
        self.printer = Printer()
        self._scheduler = scheduler
        self._printed = 0

    def print(self, path, options=(), title="Report", user="alice", copies=1):
        """Hands a file to the queue and returns the job at once."""
        command = ["lp", "-d", self.name, "-t", title, "-U", user, "-n", str(copies)]
        for option in options:
            command += ["-o", option]
        answer = self._scheduler.run([*command, "--", path])
        number = int(re.search(rf"request id is {re.escape(self.name)}-(\d+)", answer)[1])
        self._printed += 1
        return Job(self._scheduler, self, path, number, self._printed - 1)


    def print_over_ipp(self, path, attributes, title="Report", user="alice"):
        """Hands a file to the queue as a client does that knows no PPD; returns the job at once.
        The attributes are lines of ipptool: "enum finishings 20"."""
        operation = ("job-password", "job-password-encryption")
        groups = [[], []]
        for line in attributes:
            groups[line.split()[1] not in operation].append(f"ATTR {line}")
        with tempfile.NamedTemporaryFile("w", suffix=".test") as request:
            request.write("\n".join([
                "{", "OPERATION Print-Job", "GROUP operation-attributes-tag",
                "ATTR charset attributes-charset utf-8",
                "ATTR naturalLanguage attributes-natural-language en",
                "ATTR uri printer-uri $uri", f'ATTR name requesting-user-name "{user}"',
                f'ATTR name job-name "{title}"',
                *groups[0], "GROUP job-attributes-tag", *groups[1], f"FILE {path}",
                "STATUS successful-ok", "}", ""]))
            request.flush()
            answer = self._scheduler.run(
                ["ipptool", "-tv", self._scheduler.uri(self.name), request.name])
        number = int(re.search(r"job-id \(integer\) = (\d+)", answer)[1])
        self._printed += 1
        return Job(self._scheduler, self, path, number, self._printed - 1)


class Scheduler:
    """cupsd with everything of its own; `binary` is what its queues run as the filter kvfilter, and
    `data` a folder whose files lie over those of the system's data folder, PPD sources say."""

    def __init__(self, binary=None, data=None):
        self._data = data
        self._binary = pathlib.Path(binary or os.environ["KVFILTER_BINARY"])
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="kvfilter-cups-", dir=shared_folder()))
        self.temp_folder = self.folder / "spool" / "tmp"  # the TMPDIR of the filters
        self._queues = []
        self._process = None

    def __enter__(self):
        try:
            self._lay_out()
            self._start()
        except BaseException:
            self.__exit__(*sys.exc_info())
            raise
        return self

    def __exit__(self, kind, value, trace):
        if self._process:
            self._process.terminate()
            try:
                self._process.wait(TIMEOUT)
            except subprocess.TimeoutExpired:
                self._process.kill()
                self._process.wait()
        for entry in self._queues:
            entry.printer.close()
        shutil.rmtree(self.folder, ignore_errors=True)

    def add_queue(self, name, ppd_path=None, model=None):
        """A queue that prints with the PPD at `ppd_path`, or with that of a model as lpinfo -m
        lists it."""
        entry = PrintQueue(self, name)
        self._queues.append(entry)
        driver = ["-m", model] if model else ["-P", str(ppd_path)]
        self.run(["lpadmin", "-p", name, *driver, "-v", entry.printer.uri, "-E"])
        return entry

    def run(self, command):
        """Runs a CUPS command against this scheduler; returns its standard output."""
        done = subprocess.run(command, env=self.environment(), timeout=TIMEOUT, text=True,
                              stdin=subprocess.DEVNULL, capture_output=True)
        if done.returncode != 0:
            raise AssertionError(f"{command}: {done.stderr}\n{self.error_log()}")
        return done.stdout

    def uri(self, queue):
        return f"ipp://127.0.0.1:{self._port}/printers/{queue}"

    def error_log(self):
        return self._read("error_log")

    def page_log(self):
        return self._read("page_log")

    def _read(self, log):
        path = self.folder / "log" / log
        return path.read_text(errors="replace") if path.exists() else ""

    def environment(self):
        return {"PATH": PATH, "LC_ALL": "C", "HOME": str(self.folder),
                "CUPS_SERVER": f"127.0.0.1:{self._port}",
                "CUPS_SERVERROOT": str(self.folder / "etc")}  # where lpoptions writes for root

    def _lay_out(self):
        # The filters run as another user, who must be able to reach what they use.
        self.folder.chmod(0o755)
        for name in ("etc", "spool/tmp", "state", "cache", "log", "bin/filter"):
            (self.folder / name).mkdir(parents=True)
        system = server_bin()
        for entry in system.iterdir():
            if entry.name != "filter":
                (self.folder / "bin" / entry.name).symlink_to(entry)
        for entry in (system / "filter").iterdir():
            if entry.name != "kvfilter":
                (self.folder / "bin/filter" / entry.name).symlink_to(entry)
        kvfilter = self.folder / "bin/filter/kvfilter"
        shutil.copyfile(self._binary, kvfilter)
        kvfilter.chmod(0o755)
        if self._data:
            self._lay_out_data()
        # A copy, because the profile that AppArmor holds for the system's cupsd by its path would
        # keep it out of this folder.
        cupsd = shutil.which("cupsd", path=PATH)
        if not cupsd:
            raise RuntimeError("cupsd is not installed")
        self._cupsd = self.folder / "cupsd"
        shutil.copy(cupsd, self._cupsd)

    def _lay_out_data(self):
        config = ["cups-config", "--datadir"]
        system = subprocess.check_output(config, text=True).strip()
        shutil.copytree(system, self.folder / "data")
        shutil.copytree(self._data, self.folder / "data", dirs_exist_ok=True)

    def _configure(self):
        folder = self.folder
        user, group = "lp", "lp"
        if os.getuid() != 0:  # a scheduler that cannot change its user runs the filters as itself
            user, group = pwd.getpwuid(os.getuid()).pw_name, grp.getgrgid(os.getgid()).gr_name
        (folder / "etc/cups-files.conf").write_text(f"""\
ServerRoot {folder}/etc
ServerBin {folder}/bin
RequestRoot {folder}/spool
StateDir {folder}/state
CacheDir {folder}/cache
TempDir {self.temp_folder}
AccessLog {folder}/log/access_log
ErrorLog {folder}/log/error_log
PageLog {folder}/log/page_log
User {user}
Group {group}
SystemGroup root
{f"DataDir {folder}/data" if self._data else ""}
""")
        (folder / "etc/cupsd.conf").write_text(f"""\
Listen 127.0.0.1:{self._port}
LogLevel debug
MaxLogSize 0
PageLogFormat %j	%P	%C
Browsing No
WebInterface No
DefaultAuthType None
ErrorPolicy abort-job
MaxJobs 0
MaxClients 1000
<Location />
  Order allow,deny
  Allow localhost
</Location>
<Policy default>
  <Limit All>
    Order deny,allow
  </Limit>
</Policy>
""")

    def _start(self):
        # Another process may take the free port before cupsd does: then the next one is tried.
        for _ in range(5):
            with socket.create_server(("127.0.0.1", 0)) as probe:
                self._port = probe.getsockname()[1]
            self._configure()
            etc = self.folder / "etc"
            command = [self._cupsd, "-c", etc / "cupsd.conf", "-s", etc / "cups-files.conf"]
            # It ends with the test, even if the test is killed.
            self._process = subprocess.Popen(["setpriv", "--pdeathsig", "TERM", *command, "-f"],
                                             stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                             stderr=subprocess.DEVNULL)
            await_true(lambda: self._answers() or self._process.poll() is not None, self.error_log)
            if self._process.poll() is None:
                return
        subprocess.run(command + ["-t"])  # says what is wrong with the configuration
        raise RuntimeError(f"cupsd does not start\n{self.error_log()}")

    def _answers(self):
        try:
            socket.create_connection(("127.0.0.1", self._port), 1).close()
            return True
        except OSError:
            return False


def main():
    """Runs the tests of the calling program. An ordinary user may be unable to start a scheduler:
    then the program says so and counts as skipped. Root is able to, or the tests have failed."""
    if os.getuid() != 0:
        try:
            with Scheduler():
                pass
        except (OSError, RuntimeError, KeyError) as reason:
            print(f"skipped: cupsd cannot be started by a user other than root: {reason}")
            sys.exit(SKIPPED)
    unittest.main()
