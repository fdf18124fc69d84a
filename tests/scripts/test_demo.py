# SPDX-License-Identifier: Apache-2.0
"""scripts/demo: the jobs that it prints and the page that it leaves, in a browser."""

import html
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]

# What a sample's option must be seen to cause.
CAUSED = (
    ("default", "KVStaple=LeftDouble", "/StapleLocation(LeftDouble)>>>>setpagedevice"),
    ("finished", "sides=two-sided-long-edge", "@PJL COMMENT KVJOBINFO DUPLEXTYPE=DUPLEX"),
    ("watermark", "KVWatermarkColor=Red", "1.00 0.70 0.70 setrgbcolor"),
    ("two-up", "number-up=2", '@PJL SET JOBATTR="@NLPP=N2"'),
    ("secure", "KVOwner=Anna", '@PJL SET USERNAME="Anna"'),
    ("secure", "KVPassword=4711", "@PJL SET HOLD=STORE"),
    ("settings", "KVTonerSaver=Mode2", "@PJL SET ECONOMODE=MODE2"),
    ("booklet", "KVSignature=LeftSigCenterStaple", '@PJL SET JOBATTR="@DIBB=LEFT"'),
    ("booklet", "KVSignature=LeftSigCenterStaple", "/StapleLocation(Saddle)>>>>setpagedevice"),
    ("book", "KVPBindCoverMediaColor=Blue", '@PJL SET JOBATTR="@PBCC=BLUE"'),
    ("covers", "KVInsert=1,3:Tab", "after page 3, count 1"),
    ("account", "KVAccountID=4711", '@PJL SET JOBATTR="@DAID=4711"'),
)

# Says in the page's title how many pictures there are, how many of them have been drawn, and
# whether all of it fits the width of the window.
LOOK = """<script>
addEventListener("load", () => {
  const pictures = [...document.images];
  const drawn = pictures.filter(picture => picture.naturalWidth > 100);
  const fits = document.documentElement.scrollWidth <= innerWidth;
  document.title = `${pictures.length} ${drawn.length} ${fits}`;
});
</script>
"""


class DemoTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = cls.enterClassContext(tempfile.TemporaryDirectory())
        cls.folder = pathlib.Path(folder, "demo")
        done = subprocess.run([sys.executable, "-B", ROOT / "scripts/demo_jobs.py",
                               os.environ["KVFILTER_BUILD_DIR"], cls.folder], text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        if done.returncode != 0:
            raise AssertionError(done.stdout)
        cls.said = done.stdout
        cls.page = (cls.folder / "index.html").read_text(encoding="utf-8")

    def sections(self):
        return dict(re.findall(r'<section id="([^"]+)">(.*?)</section>', self.page, re.DOTALL))

    def test_options_are_shown_with_what_they_cause(self):
        sections = self.sections()
        self.assertEqual(len(sections), 13)
        for name, option, line in CAUSED:
            with self.subTest(sample=name, option=option):
                part = sections[name].split(f'<th colspan="2">{option}', 1)[1].split("<th ")[0]
                self.assertIn(html.escape(line), part)
                self.assertIn(line, self.said)

    def test_every_option_causes_something(self):
        for name, section in self.sections().items():
            if name != "booklet-by-cups":  # which CUPS alone does
                self.assertNotIn("nothing of its own", section, name)

    def test_passwords_are_not_shown_but_as_typed(self):
        for name, section in self.sections().items():
            self.assertEqual(re.findall(r'HOLDENCRYPTKEY="(?!\**")', html.unescape(section)), [], name)

    def test_ends_with_the_commands_for_a_queue(self):
        self.assertRegex(self.said, r"\nlpadmin -p office -m drv:///korvell.drv/kv2024c.ppd ")
        self.assertTrue(self.said.endswith("\nlp -d office -o KVWatermark=Draft report.pdf\n"))

    def test_browser_shows_every_picture(self):
        looked_at = self.folder / "looked-at.html"
        looked_at.write_text(self.page.replace("</title>", "</title>" + LOOK), encoding="utf-8")
        with tempfile.TemporaryDirectory() as profile:
            browser = shutil.which("chromium") or "google-chrome"
            done = subprocess.run([browser, "--headless", "--no-sandbox", "--disable-gpu",
                                   f"--user-data-dir={profile}", "--window-size=1280,900",
                                   "--dump-dom", looked_at.as_uri()],
                                  env={**os.environ, "HOME": profile}, text=True, timeout=120,
                                  stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        title = re.search("<title>(.*?)</title>", done.stdout)
        self.assertTrue(title, "the browser shows nothing")
        self.assertEqual(title[1], "10 10 true")


if __name__ == "__main__":
    unittest.main()
