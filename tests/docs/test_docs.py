# SPDX-License-Identifier: Apache-2.0
"""The documentation says what is so: its examples run, its paths exist, its man page formats."""

import os
import pathlib
import re
import shutil
import socket
import subprocess
import tempfile
import unittest

SOURCE_DIR = pathlib.Path(__file__).resolve().parents[2]
DOCS = SOURCE_DIR / "docs"


def printed_by(computer, output):
    """Output of kvjobinfo as it would be on another computer: its name and what its length moves."""
    name = socket.gethostname()

    def named(line):
        return f'"@CNAM={computer}"' + " " * (len(line[1]) + len(name) - len(computer))

    output, count = re.subn(f'"@CNAM={re.escape(name)}"( *)', named, output)
    shift = count * (len(computer) - len(name))
    output = re.sub(r"(?<=from byte )\d+", lambda place: str(int(place[0]) + shift), output)
    return re.sub(r"(?<=a job of )[\d,]+",
                  lambda size: f"{int(size[0].replace(',', '')) + shift:,}", output)


class DocsTest(unittest.TestCase):
    def test_console_examples_print_what_they_show(self):
        for page in sorted(DOCS.glob("*.md")):
            for number, session in enumerate(re.findall(r"```console\n(.*?)```", page.read_text(),
                                                        re.DOTALL)):
                with self.subTest(page=page.name, session=number):
                    self.maxDiff = None
                    self.assertEqual(self.replay(session), session)

    def test_filter_by_hand_as_the_readme_says(self):
        lines = re.findall(r"^    ((?:export PPD|build/release/)\S*.*)$",
                           (SOURCE_DIR / "README.md").read_text(), re.MULTILINE)
        self.assertEqual(len(lines), 4)
        shown = self.replay("".join(f"$ {line}\n" for line in lines))
        self.assertIn("@PJL COMMENT KVJOBINFO STAPLE=ON ", shown)

    def replay(self, session):
        """Runs the lines that begin with "$ " in a folder that looks like the source's."""
        with tempfile.TemporaryDirectory() as folder:
            for name in ("samples", "scripts"):
                shutil.copytree(SOURCE_DIR / name, pathlib.Path(folder, name))
            pathlib.Path(folder, "build").mkdir()
            pathlib.Path(folder, "build/release").symlink_to(os.environ["KVFILTER_BUILD_DIR"])
            commands = "".join(f"cat <<'SHOWN'\n$ {line}\nSHOWN\n{line}\n"
                               for line in re.findall(r"^\$ (.*)$", session, re.MULTILINE))
            environment = {**os.environ, "LC_ALL": "C.UTF-8", "COLUMNS": ""}
            done = subprocess.run(["sh"], input=commands, cwd=folder, text=True, env=environment,
                                  stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        return printed_by("desk", done.stdout)

    def test_man_pages_format_without_a_warning(self):
        pages = sorted(pathlib.Path(os.environ["KVFILTER_BUILD_DIR"], "docs").glob("*.[1-8]"))
        self.assertEqual([f"{page.name}.in" for page in pages],
                         [page.name for page in sorted(DOCS.glob("*.in"))])
        for page in pages:
            for command in (["groff", "-man", "-Tutf8", "-ww", "-z"],
                            ["mandoc", "-T", "lint", "-W", "style"]):
                with self.subTest(page=page.name, command=command[0]):
                    done = subprocess.run([*command, page], text=True, stdout=subprocess.PIPE,
                                          stderr=subprocess.STDOUT)
                    self.assertEqual((done.returncode, done.stdout), (0, ""))

    def test_man_pages_name_nothing_that_only_the_sources_have(self):
        for page in DOCS.glob("*.in"):
            self.assertNotRegex(page.read_text(), r"docs/|scripts/|samples/|build/")

    def test_pages_name_what_there_is(self):
        keywords = {"CommentOn", "PCFileName", "ColorDevice", "LanguageEncoding"}
        page = (DOCS / "ppd.md").read_text()
        keywords |= set(re.findall(r"^\| (?:option )?`(KV\w+)`", page, re.MULTILINE))
        code = "".join(path.read_text() for folder in ("CommonSource", "FrontEnd", "Modules", "Tables")
                       for path in (SOURCE_DIR / folder).rglob("*.*")
                       if path.suffix in (".cpp", ".h", ".def"))
        self.assertGreater(len(keywords), 7)
        for keyword in keywords:
            self.assertTrue(f'"{keyword}"' in code, keyword)
            self.assertIn(f"`{keyword}`", page)
        for page in DOCS.glob("*.md"):
            text = page.read_text()
            for path in re.findall(r"\]\(([^)#:]+)(?:#[^)]*)?\)", text):
                self.assertTrue((DOCS / path).exists(), f"{page.name}: {path}")
            for path in re.findall(r"`((?:tests|scripts|ppd|samples|Tables|CommonSource)/[^`<]*)`",
                                   text):
                self.assertTrue((SOURCE_DIR / path.split()[0]).exists(), f"{page.name}: {path}")
            for model in re.findall(r"drv:///korvell\.drv/(\w+\.ppd)", text):
                self.assertTrue(pathlib.Path(os.environ["KVFILTER_PPD_DIR"], model).exists(), model)

    def test_a_new_model_as_the_page_says(self):
        page = (DOCS / "ppd.md").read_text().split("## A new model")[1]
        sources = (SOURCE_DIR / "ppd/korvell.drv").read_text()
        block = re.search(r"^\{\n  ModelName   \"KV2024C\".*?^\}\n", sources, re.M | re.S)[0]
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            shutil.copytree(SOURCE_DIR / "ppd", folder, dirs_exist_ok=True)
            new = block.replace("KV2024C", "KV3033C").replace("kv2024c", "kv3033c")
            (folder / "korvell.drv").write_text(sources + new)
            subprocess.run(["ppdc", "-d", folder, "-I", folder, folder / "korvell.drv"], check=True,
                           stdout=subprocess.DEVNULL)
            ppd = folder / "kv3033c.ppd"
            subprocess.run(["cupstestppd", "-q", "-I", "filters", ppd], check=True)
            for fact in re.findall("`(ModelName|PCFileName|1284DeviceID)`", page):
                self.assertRegex(ppd.read_text(), rf"(?m)^\*{fact}: .*KV3033C")
            with open(SOURCE_DIR / "samples/plain.ps", "rb") as document:
                job = subprocess.run([os.environ["KVFILTER_BINARY"], "1", "anna", "Report", "1",
                                      "KVStaple=LeftDouble"], stdin=document, check=True,
                                     capture_output=True, env={**os.environ, "PPD": str(ppd)})
            self.assertIn(b"STAPLE=ON", job.stdout)
        for path in ("ppd/CMakeLists.txt", "tests/ppd/test_ppds.py", "tests/ppd/MachinePpdTest.cpp"):
            self.assertIn(f"`{path}`", page)
            self.assertRegex((SOURCE_DIR / path).read_text(), "(?m)(models|MACHINES|kMachines).*kv2024c")
        tests = re.search(r"ctest --preset release -R '(.*)'", page)[1]
        listed = subprocess.run(["ctest", "--test-dir", os.environ["KVFILTER_BUILD_DIR"], "-N", "-R",
                                 tests], check=True, capture_output=True, text=True).stdout
        self.assertLessEqual({"test_ppds", "MachinePpdTest"},
                             set(re.findall(r"#\d+: (?:asan\.)?(\w+)", listed)))

    def test_the_copy_is_switched_on_where_the_filter_looks(self):
        flags = set(re.findall(r"^    (?:touch|rm) (\S+)", (DOCS / "troubleshooting.md").read_text(),
                               re.MULTILINE))
        code = (SOURCE_DIR / "CommonSource/FilterFrame/Source/JobCopy.cpp").read_text()
        self.assertEqual(flags, set(re.findall(r'FlagPath = "(.*)"', code)))

    def test_forge_runs_scripts_that_there_are(self):
        workflow = (SOURCE_DIR / ".github/workflows/ci.yml").read_text()
        steps = re.findall(r"run: ((?:\.ci|scripts)/\S+)", workflow)
        self.assertGreater(len(steps), 5)
        for step in steps:
            self.assertTrue(os.access(SOURCE_DIR / step, os.X_OK), step)

    def test_readme_is_short_and_its_links_lead_somewhere(self):
        text = (SOURCE_DIR / "README.md").read_text()
        self.assertLessEqual(len(text.splitlines()), 120)
        paths = re.findall(r"\]\(([^)]+)\)", text)
        paths += re.findall(r"`((?:tests|scripts|ppd|samples|docs|bench|Tables|CommonSource)/[^`<]*)`",
                            text)
        self.assertGreater(len(paths), 10)
        for path in paths:
            with self.subTest(path=path):
                self.assertTrue((SOURCE_DIR / path).exists())


if __name__ == "__main__":
    unittest.main()
