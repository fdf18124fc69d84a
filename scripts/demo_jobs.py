# SPDX-License-Identifier: Apache-2.0
"""Prints samples as queues would and shows which option caused what. Called by scripts/demo.

Every job runs through the chain of filters that CUPS would choose (cupsfilter), from PDF or
PostScript, with the PPD of a machine. What an option causes is what is missing without it."""

import collections
import dataclasses
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys

from demo_page import write_page

ROOT = pathlib.Path(__file__).resolve().parents[1]


@dataclasses.dataclass(frozen=True)
class Sample:
    """A job to print. `options` are as lp's -o takes them, `defaults` as lpadmin's."""
    name: str
    words: str
    model: str
    document: str = "report.ps"
    options: tuple = ()
    defaults: tuple = ()
    before: int = 0  # page of the document to draw beside the job's, 0 for none
    after: int = 0  # page of the job to draw


SAMPLES = (
    Sample("plain", "A job without options: colour, one-sided, counted.", "kv2024c",
           before=1, after=1),
    Sample("default", "The administrator has set stapling for the queue; the job says nothing.",
           "kv2024c", defaults=("KVStaple=LeftDouble",)),
    Sample("finished", "Two-sided, stapled and punched.", "kv2024c",
           options=("sides=two-sided-long-edge", "KVStaple=LeftDouble",
                    "KVPunch=Left", "KVNumPunchHoles=2Holes")),
    Sample("pdf", "A PDF with a watermark.", "kv2024c", document="report.pdf",
           options=("KVWatermark=Draft",), before=3, after=3),
    Sample("watermark", "A text of one's own, in red, on the first sheet only.", "kv2024c",
           options=("KVWatermark=Custom.Müller", "KVWatermarkColor=Red",
                    "KVWatermarkDensity=30", "KVWatermarkPages=First"), before=1, after=1),
    Sample("two-up", "Two pages on a sheet, and one watermark on it.", "kv2024c",
           options=("number-up=2", "KVWatermark=Copy"), before=2, after=1),
    Sample("secure", "Kept by the printer until its owner enters the password.", "kv1024p",
           options=("KVPassword=4711", "KVOwner=Anna")),
    Sample("settings", "Settings that this machine takes as PJL, out of the PPD's own code.",
           "kv1024p", options=("KVTonerSaver=Mode2", "KVOutputMode=1200x1200",
                               "KVHalftone=Fineness", "KVBrightnes=Dark2")),
    Sample("booklet", "A booklet that the machine puts in order and stitches in its fold.",
           "kv2024c", options=("KVSignature=LeftSigCenterStaple", "KVSigVol=5Sheets",
                               "KVAutoFit=True")),
    Sample("booklet-by-cups", "The same pages put in booklet order by CUPS: the last beside the "
           "first.", "kv2024c", document="report.pdf", options=("booklet=true",),
           before=1, after=1),
    Sample("book", "A bound and trimmed book with a blue cover of thick paper.", "kv4024x",
           options=("KVPBindPosition=BindLeft", "KVPBindTrimming=3EdgeCut",
                    "KVPBindCoverMediaType=ThickPaper", "KVPBindCoverMediaColor=Blue",
                    "KVPBindCoverPaperTray=PBindInserter")),
    Sample("covers", "A printed cover, tab sheets after two pages, and other paper for a page.",
           "kv4024x", options=("KVFrontCover=Thick:both", "KVInsert=1,3:Tab",
                               "KVException=2:Coated")),
    Sample("account", "Charged to an account.", "kv2024c",
           options=("KVAccountUser=Login", "KVAccountID=4711")),
)

POSTSCRIPT = "PostScript ahead of the pages"
# Comments, the wrapping of code, and the numbers that Ghostscript gives to its objects.
NO_SETTING = re.compile(r"^(%|\[\{|\} stopped)|\bobj\b|/Encoding")
MOST_CODE = 3  # lines of it that are shown

QUEUE = """lpadmin -p office -m drv:///korvell.drv/kv2024c.ppd -v socket://printer.example.com -E
lpadmin -p office -o KVStaple=LeftDouble        # a default of the queue
lpoptions -p office -l                          # what can be set
lp -d office -o KVWatermark=Draft report.pdf"""


def run(*command, **settings):
    return subprocess.run([str(word) for word in command], check=True, stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, **settings).stdout


class Demo:
    def __init__(self, build, folder):
        self.build = build
        self.folder = folder
        shutil.rmtree(folder, ignore_errors=True)
        (folder / "cups/bin/filter").mkdir(parents=True)
        # CUPS's own filters, and the one that was built.
        system = pathlib.Path(run("cups-config", "--serverbin").decode().strip())
        for entry in (system / "filter").iterdir():
            if entry.name != "kvfilter":
                (folder / "cups/bin/filter" / entry.name).symlink_to(entry)
        (folder / "cups/bin/filter/kvfilter").symlink_to(build / "kvfilter")
        self.configuration = folder / "cups/cups-files.conf"
        self.configuration.write_text(f"ServerBin {folder}/cups/bin\n")
        run("ps2pdf", ROOT / "samples/report.ps", folder / "report.pdf")

    def document(self, sample):
        if sample.document.endswith(".pdf"):
            return self.folder / sample.document
        return ROOT / "samples" / sample.document

    def queue(self, sample, defaults):
        """The PPD of a queue: the machine's, with what lpadmin -o would write into it."""
        ppd = (self.build / f"ppd/{sample.model}.ppd").read_text(encoding="utf-8")
        for default in defaults:
            keyword, choice = default.split("=")
            ppd = re.sub(rf"^\*Default{keyword}: .*$", f"*Default{keyword}: {choice}", ppd,
                         flags=re.MULTILINE)
        path = self.folder / f"cups/{sample.model}.ppd"
        path.write_text(ppd, encoding="utf-8")
        return path

    def print(self, sample, options, defaults, log=subprocess.DEVNULL):
        """The job, as the printer receives it, or None if the filter refuses it."""
        command = ["cupsfilter", "-e", "-c", self.configuration, "-m", "printer/office",
                   "-p", self.queue(sample, defaults), "-U", "alice", "-t", "Quarterly Report"]
        for option in options:
            command += ["-o", option]
        done = subprocess.run([*command, self.document(sample)], stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=log,
                              env={**os.environ, "LC_ALL": "C.UTF-8"})
        return done.stdout if done.returncode == 0 else None

    def explain(self, job):
        """The lines of a job and what they mean, in order."""
        said = json.loads(subprocess.run([self.build / "kvjobinfo", "show", "--json"], input=job,
                                         check=True, stdout=subprocess.PIPE).stdout)
        for page in said.get("specialPages", {}).get("pages", []):
            yield page["what"], page["words"]
        for line in said["header"]:
            yield line["line"], line["meaning"]
        document = job[said["document"]["offset"]:].decode("latin-1")
        for line in document.split("\n%%Page:")[0].splitlines():
            if not NO_SETTING.search(line):
                yield line, POSTSCRIPT

    def causes(self, sample):
        """For each option, the lines that a job without it lacks."""
        lines = list(self.explain((self.folder / f"{sample.name}.job").read_bytes()))
        explained = []
        for kind in ("options", "defaults"):
            for option in getattr(sample, kind):
                fewer = {"options": sample.options, "defaults": sample.defaults}
                fewer[kind] = tuple(other for other in fewer[kind] if other != option)
                explained.append((option, kind == "defaults",
                                  self.missing(lines, self.print(sample, **fewer))))
        return explained

    def missing(self, lines, job):
        if job is None:
            return [("the whole job", "without the option the filter refuses it")]
        missing = collections.Counter(lines)
        missing.subtract(self.explain(job))
        caused = [line for line in dict.fromkeys(lines) if missing[line] > 0]
        code = [line for line in caused if line[1] == POSTSCRIPT]
        shown = [line for line in caused if line[1] != POSTSCRIPT] + code[:MOST_CODE]
        if len(code) > MOST_CODE:
            shown.append((f"and {len(code) - MOST_CODE} lines more", POSTSCRIPT))
        return shown or [("nothing of its own", "CUPS does it, or another option says it too")]

    def pictures(self, sample):
        drawn = {}
        if sample.before:
            drawn["before"] = self.folder / f"{sample.name}-before.png"
            run("gs", "-q", "-dSAFER", "-dBATCH", "-dNOPAUSE", "-sDEVICE=png16m", "-r72",
                "-dTextAlphaBits=4", "-dGraphicsAlphaBits=4", "-sDEFAULTPAPERSIZE=a4",
                f"-sPageList={sample.before}", f"-sOutputFile={drawn['before']}",
                self.document(sample))
        if sample.after:
            drawn["after"] = self.folder / f"{sample.name}-after.png"
            run(self.build / "kvjobinfo", "page", sample.after, "-o", drawn["after"],
                self.folder / f"{sample.name}.job")
        return {when: picture.name for when, picture in drawn.items()}

    def show(self, sample):
        """Prints a sample; returns what the page shows of it."""
        with open(self.folder / f"{sample.name}.log", "wb") as log:
            job = self.print(sample, sample.options, sample.defaults, log)
        if job is None:
            sys.exit(f"demo: {sample.name} cannot be printed; see {self.folder / sample.name}.log")
        (self.folder / f"{sample.name}.job").write_bytes(job)
        command = " ".join(["lp -d office", *(f"-o {option}" for option in sample.options),
                            sample.document])
        shown = {"name": sample.name, "words": sample.words, "model": sample.model,
                 "command": command, "causes": self.causes(sample),
                 "pictures": self.pictures(sample)}
        print(f"\n== {sample.name} ({sample.model}): {sample.words}\n   {command}")
        for option, is_default, caused in shown["causes"]:
            print(f"   {option}{' (default of the queue)' if is_default else ''}")
            for line, meaning in caused:
                print(f"      {line:<55} {meaning}")
        for when, picture in shown["pictures"].items():
            print(f"   {when}: {self.folder / picture}")
        return shown


def main():
    demo = Demo(*(pathlib.Path(path).resolve() for path in sys.argv[1:]))
    write_page(demo.folder / "index.html", [demo.show(sample) for sample in SAMPLES], QUEUE)
    print(f"\nAll of it side by side: {demo.folder / 'index.html'}\n"
          f"\nA queue of your own, once the package is installed (scripts/package):\n\n{QUEUE}")


if __name__ == "__main__":
    main()
