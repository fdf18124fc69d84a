# SPDX-License-Identifier: Apache-2.0
"""The PPDs conform, to the letter that CUPS checks."""

import os
import pathlib
import re
import subprocess
import tempfile
import unittest

SOURCE_DIR = pathlib.Path(__file__).resolve().parents[2]
PPDS = pathlib.Path(os.environ["KVFILTER_PPD_DIR"])
MACHINES = {"kv1024p", "kv2024c", "kv4024x"}
FIXTURES = {"kv1010p", "kv1150p", "kv1160p", "kv2110c", "kv2120c", "kv2130c", "kv4110x"}

# What cupstestppd warns of and what cannot be otherwise: sizes by the names that the machine binds,
# and KVWatermark, whose sisters' names say what they belong to.
KNOWN_WARNINGS = re.compile(r'Size "(KV\w+(-KAI|-KAI-GCO)?|TabloidExtra)" should be the Adobe|'
                            r"KVWatermark shares a common prefix with KVWatermark")

MEASURE = re.compile(r"\d\d+")
LANGUAGES = ("de", "fr", "ja")
SAME_IN_SOME_LANGUAGE = {"B4 (JIS)", "B5 (JIS)", "Courier", "Cyan", "Finisher", "Helvetica", "Magenta", "Name",
                         "Normal", "Orange", "Pages", "Pages (3,7)", "Points", "SRA3", "Text",
                         "Times Roman", "600 dpi", "1200 dpi"}


def check(model):
    """What cupstestppd says. The filter is not installed; that it is found where it is, another
    test shows."""
    return subprocess.run(["cupstestppd", "-I", "filters", PPDS / f"{model}.ppd"], text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT)


class PpdTest(unittest.TestCase):
    def test_these_are_all(self):
        self.assertEqual({ppd.stem for ppd in PPDS.glob("*.ppd")}, MACHINES | FIXTURES)

    def test_all_conform(self):
        for model in sorted(MACHINES | FIXTURES):
            with self.subTest(ppd=model):
                done = check(model)
                self.assertEqual(done.returncode, 0, done.stdout)
                self.assertNotIn("FAIL", done.stdout)

    def test_machines_give_no_warning_that_could_be_avoided(self):
        for model in sorted(MACHINES):
            with self.subTest(ppd=model):
                warnings = [line for line in check(model).stdout.splitlines() if "WARN" in line]
                self.assertEqual([w for w in warnings if not KNOWN_WARNINGS.search(w)], [])


class DocumentTest(unittest.TestCase):
    """What CUPS writes of a machine's options into a document."""

    def document(self, model, *options):
        pstops = subprocess.check_output(["cups-config", "--serverbin"], text=True).strip()
        return subprocess.run([f"{pstops}/filter/pstops", "1", "alice", "Report", "1",
                               " ".join(options), SOURCE_DIR / "samples/report.ps"],
                              env={**os.environ, "PPD": str(PPDS / f"{model}.ppd")}, check=True,
                              text=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout

    def test_no_text_of_the_user_and_nothing_for_the_filter_alone(self):
        for model in sorted(MACHINES):
            ppd = (PPDS / f"{model}.ppd").read_text()
            texts = set(re.findall(r"^\*ParamCustom(KV\w+)", ppd, re.MULTILINE))
            self.assertGreater(len(texts), 14)
            document = self.document(model, "KVStaple=LeftDouble",
                                     *(f"{keyword}=Custom.4711" for keyword in texts))
            self.assertIn("%%BeginFeature: *KVStaple LeftDouble\n", document)
            self.assertNotIn("4711", document)
            for keyword in re.findall(r"^\*OrderDependency: -1 AnySetup \*(\w+)", ppd,
                                      re.MULTILINE):
                self.assertNotIn(f" *{keyword} ", document)
                self.assertNotIn(f" *Custom{keyword} ", document)
                texts.discard(keyword)
            self.assertEqual(texts, set())

    def test_a_feature_in_the_document_brings_none_of_it_back(self):
        document = SOURCE_DIR / "samples/report.ps"
        with tempfile.NamedTemporaryFile("w", suffix=".ps") as file:
            file.write(document.read_text().replace(
                "%%EndSetup", "%%IncludeFeature: *KVStaple TopDouble\n%%EndSetup", 1))
            file.flush()
            pstops = subprocess.check_output(["cups-config", "--serverbin"], text=True).strip()
            done = subprocess.run([f"{pstops}/filter/pstops", "1", "alice", "Report", "1",
                                   "KVPassword=Custom.4711 KVOwner=Custom.4711", file.name],
                                  env={**os.environ, "PPD": str(PPDS / "kv2024c.ppd")},
                                  text=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.assertIn("%%BeginFeature: *KVStaple TopDouble\n", done.stdout)
        self.assertNotIn("4711", done.stdout)

    def test_a_printer_can_run_the_code_of_every_choice(self):
        for model in sorted(MACHINES):
            ppd = (PPDS / f"{model}.ppd").read_text()
            choices = re.findall(r'^\*(\w+) ([^\s/:]+)/[^:]*: "([^"]*setpagedevice[^"]*)"', ppd,
                                 re.MULTILINE)
            self.assertGreater(len(choices), 60)
            program = "%!PS\n" + "".join(
                f"mark {{ {code} }} stopped {{ (*{keyword} {choice} fails\\n) print }} if cleartomark\n"
                for keyword, choice, code in choices)
            done = subprocess.run(["gs", "-q", "-dSAFER", "-dBATCH", "-dNOPAUSE",
                                   "-sDEVICE=nullpage", "-"], input=program, text=True,
                                  capture_output=True)
            self.assertEqual((done.stdout, done.stderr, done.returncode), ("", "", 0))


class TranslationTest(unittest.TestCase):
    # What is no text: names of the maker, and the values of parameters of custom options.
    NO_TEXT = re.compile(r"Korvell$|KV\d+\w$|\d+ (string|int|password) -?\d+ \d+$")

    def catalogue(self, path):
        """The texts of a catalogue of messages and what they become. None of ours spans lines."""
        text = path.read_text(encoding="utf-8")
        pairs = re.findall(r'^msgid "(.+)"\nmsgstr "(.*)"$', text, re.MULTILINE)
        self.assertEqual(len(pairs), text.count("msgid "), path)
        self.assertEqual(len(pairs), len(dict(pairs)), f"{path}: a text twice")
        return dict(pairs)

    def texts(self):
        with tempfile.TemporaryDirectory() as folder:
            catalogue = pathlib.Path(folder, "all.po")
            subprocess.run(["ppdpo", "-o", catalogue, "-I", SOURCE_DIR / "ppd",
                            SOURCE_DIR / "ppd/korvell.drv"], check=True,
                           stderr=subprocess.DEVNULL)
            return {text for text in self.catalogue(catalogue) if not self.NO_TEXT.match(text)}

    def test_catalogues_are_complete_and_hold_nothing_else(self):
        texts = self.texts()
        self.assertGreater(len(texts), 300)
        for language in LANGUAGES:
            with self.subTest(language=language):
                catalogue = self.catalogue(SOURCE_DIR / f"ppd/korvell/{language}.po")
                self.assertEqual(set(catalogue), texts)
                for text, translation in catalogue.items():
                    self.assertTrue(translation, text)
                    self.assertNotIn(":", translation)  # it would end the text in a PPD
                    self.assertEqual(MEASURE.findall(translation), MEASURE.findall(text))

    def test_words_are_translated(self):
        for language in LANGUAGES:
            catalogue = self.catalogue(SOURCE_DIR / f"ppd/korvell/{language}.po")
            same = {text for text, translation in catalogue.items()
                    if text == translation and re.search("[A-Za-z]{3}", text)}
            self.assertLessEqual(same, SAME_IN_SOME_LANGUAGE, language)

    def test_ppds_hold_every_translation(self):
        for model in sorted(MACHINES):
            ppd = (PPDS / f"{model}.ppd").read_text(encoding="utf-8")
            self.assertIn('*cupsLanguages: "en de fr ja"\n', ppd)
            choices = re.findall(r'^\*(KV\w+) ([^\s/:]+)/([^:]*): "', ppd, re.MULTILINE)
            self.assertGreater(len(choices), 70)
            for language in LANGUAGES:
                catalogue = self.catalogue(SOURCE_DIR / f"ppd/korvell/{language}.po")
                for keyword, choice, text in choices:
                    self.assertIn(f"\n*{language}.{keyword} {choice}/{catalogue[text]}: ", ppd)


if __name__ == "__main__":
    unittest.main()
