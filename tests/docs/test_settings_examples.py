# SPDX-License-Identifier: Apache-2.0
"""The rest of docs/options.md: settings that become PJL, values of special pages, and what people type
to lp, lpadmin and lpoptions; and what docs/troubleshooting.md tells them to type."""

import os
import pathlib
import re
import subprocess
import sys
import unittest

SOURCE_DIR = pathlib.Path(__file__).resolve().parents[2]
PAGE = (SOURCE_DIR / "docs/options.md").read_text(encoding="utf-8")
TROUBLESHOOTING = (SOURCE_DIR / "docs/troubleshooting.md").read_text(encoding="utf-8")
PPDS = pathlib.Path(os.environ["KVFILTER_PPD_DIR"])
REPORT = SOURCE_DIR / "samples/report.ps"

sys.path.append(str(SOURCE_DIR / "tests/queue"))
import scheduler  # noqa: E402 (found by the line above)


def table(heading):
    """The rows below a heading, as lists of cells."""
    rows = PAGE.split(heading)[1].split("\n\n")[0].splitlines()[1:]
    return [row.strip("| ").split(" | ") for row in rows]


def codes(cell):
    return re.findall(r"`([^`]+)`", cell)


def printed(model, options):
    """What the printer gets of a job, in Latin-1."""
    environment = {**os.environ, "PPD": str(PPDS / f"{model}.ppd")}
    bin_folder = subprocess.check_output(["cups-config", "--serverbin"], text=True).strip()
    arguments = ["1", "alice", "Report", "1", options]
    document = subprocess.run([f"{bin_folder}/filter/pstops", *arguments, REPORT], check=True,
                              env=environment, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL).stdout
    return subprocess.run([os.environ["KVFILTER_BINARY"], *arguments], input=document, check=True,
                          env=environment, stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL).stdout.decode("latin-1")


class SettingsTest(unittest.TestCase):
    COLOR, MONOCHROME = "kv1160p", "kv1024p"

    def choices(self, model):
        """The choices of a model's options, the default first."""
        ppd = (PPDS / f"{model}.ppd").read_text(encoding="utf-8")
        found = {}
        for keyword, choice in re.findall(r"^\*(\w+) ([^\s/:]+)/", ppd, re.MULTILINE):
            found.setdefault(keyword, []).append(choice)
        defaults = dict(re.findall(r"^\*Default(\w+): (\S+)", ppd, re.MULTILINE))
        return {keyword: [defaults[keyword], *(c for c in choices if c != defaults[keyword])]
                for keyword, choices in found.items() if keyword in defaults}

    def rows(self):
        return table("| option | values | example | line in the header |\n")

    def test_examples_write_their_lines(self):
        plain = printed(self.COLOR, "")
        for _, _, example, effect in self.rows():
            option = codes(example)[0].removeprefix("-o ")
            line = codes(effect)[0] + "\n"
            with self.subTest(option):
                header = printed(self.COLOR, option).split("@PJL ENTER LANGUAGE")[0]
                self.assertIn("\n" + line, header)
                self.assertNotIn("\n" + line, plain)
                for name in codes(effect)[1:]:  # its sisters
                    value = line.rsplit("=", 1)[1]
                    self.assertIn(f'\n@PJL SET JOBATTR="@{name}={value}', header)

    def test_all_settings_of_both_machines_are_there_with_their_choices(self):
        named = {codes(option)[0]: codes(values) for option, values, _, _ in self.rows()}
        self.assertEqual(len(named), 25)
        color, monochrome = self.choices(self.COLOR), self.choices(self.MONOCHROME)
        page_device = {"PageSize", "PageRegion", "ImageableArea", "PaperDimension", "Duplex"}
        self.assertEqual(set(named), {k for k in color if k not in page_device})
        for keyword, choices in color.items():
            if keyword in page_device:
                continue
            with self.subTest(keyword):
                self.assertEqual(named[keyword][0], choices[0])
                self.assertLessEqual(set(named[keyword]), {*choices, "Auto"})
        self.assertLessEqual(set(list(named)[:7]), set(monochrome))
        self.assertFalse(set(list(named)[7:]) & set(monochrome))


class SpecialPagesTest(unittest.TestCase):
    def test_values_are_laid_out_as_the_page_says(self):
        ticket = "com.korvell.tav.printsettings."
        rows = table("| value | in the job's ticket |\n")
        self.assertEqual(len(rows), 3)
        for value, effects in rows:
            key = "".join(codes(value))
            count = re.sub(r"Value.*", "Count", key) + "Ticket=1"
            output = printed("kv4110x", f"{ticket}{count} {ticket}{key}")
            for effect in codes(effects):
                self.assertIn(effect, output)


class QueueTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.cups = cls.enterClassContext(scheduler.Scheduler())
        cls.queue = cls.cups.add_queue("office", PPDS / "kv2024c.ppd")

    def run_as_typed(self, command, queue=None):
        """Returns what a command prints, or for lp what the printer gets."""
        queue = queue or self.queue
        before = len(queue.printer.jobs)
        shown = self.cups.run(["sh", "-c", command.replace("report.ps", str(REPORT))])
        if not command.startswith("lp "):
            return shown
        scheduler.await_true(lambda: len(queue.printer.jobs) > before, self.cups.error_log)
        return queue.printer.jobs[-1].decode("latin-1")

    def test_what_people_type(self):
        commands = re.findall(r"^    ((?:lp|lpadmin|lpoptions) -[dp] office.*?)(?:  +#.*)?$", PAGE,
                              re.MULTILINE)
        self.assertEqual(len(commands), 6)

        def prints():
            return self.run_as_typed("lp -d office report.ps")

        zoe, anna, anna_no_more, staple, instance, draft = commands
        self.assertIn(r"(For Zo\353)", self.run_as_typed(zoe))
        self.run_as_typed(anna)
        self.assertIn("(For Anna)", prints())
        self.run_as_typed(anna_no_more)
        self.assertNotIn("(For Anna)", prints())
        self.run_as_typed(staple)
        self.assertIn("STAPLE=ON", prints())
        self.run_as_typed(instance)
        self.assertIn("(DRAFT)", self.run_as_typed(draft))
        self.assertNotIn("(DRAFT)", prints())

    def test_where_to_look(self):
        debug, follow = re.findall(r"^    ((?:cupsctl|tail) .*?)(?:  +#.*)?$", TROUBLESHOOTING,
                                   re.MULTILINE)
        off = re.search(r"#.*(--no-debug-logging)", TROUBLESHOOTING)[1]
        for command, level in ((f"cupsctl {off}", "0"), (debug, "1")):
            self.run_as_typed(command)
            scheduler.await_true(
                lambda: f"_debug_logging={level}" in self.run_as_typed("cupsctl || :"),
                self.cups.error_log)
        self.run_as_typed("lp -d office report.ps")
        log = str(self.cups.folder / "log/error_log")
        with subprocess.Popen(follow.replace("/var/log/cups/error_log", log).split(), text=True,
                              stdout=subprocess.PIPE) as shown:
            self.assertTrue(any("[Job " in line for line in shown.stdout))
            shown.terminate()

    def test_what_to_do(self):
        def command(pattern):
            return re.search(f"`({pattern})`", TROUBLESHOOTING)[1].replace("QUEUE", "office")

        explain = command("kvjobinfo explain --queue [^`]*").replace("OPTIONS", "KVStaple=LeftDouble")
        kvjobinfo = os.environ["KVJOBINFO_BINARY"]
        self.assertIn("STAPLE=ON", self.run_as_typed(explain.replace("kvjobinfo", kvjobinfo)))
        self.assertIn("KVStaple/Staple: ", self.run_as_typed(command("lpoptions -p QUEUE -l")))
        self.assertIn("printer-info=", self.run_as_typed(command("lpoptions -p QUEUE")))
        text = command("-o 'KVWatermark=[^`]*")
        self.assertIn("(For Anna only)", self.run_as_typed(f"lp -d office {text} report.ps"))

        old = self.cups.add_queue("old", PPDS / "kv2110c.ppd")
        print_draft = "lp -d old -o KVWatermark=Draft report.ps"
        self.assertNotIn("(DRAFT)", self.run_as_typed(print_draft, old))
        switch = command("lpadmin -p QUEUE -o KVFrontEnd[^`]*")
        self.run_as_typed(switch.replace("office", "old"))
        self.assertIn("(DRAFT)", self.run_as_typed(print_draft, old))


if __name__ == "__main__":
    scheduler.main()
