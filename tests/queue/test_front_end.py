# SPDX-License-Identifier: Apache-2.0
"""Queues of plain CUPS, as people and administrators use them: lp, lpadmin, lpoptions, IPP clients.

What an option causes is held against the header of a job without it: the lines that it adds, and
those that it takes away (written with a "-" in front)."""

import collections
import unittest

import scheduler
from golden import ENTER_POSTSCRIPT, JOB_MODE, accounting, job_information
from scheduler import ppd, sample

OFFICE = "kv2024c"
SWITCH = '*KVFrontEnd: "CUPS"\n'


def header_of(output):
    """The lines in front of the document, as text; line ends do not matter here."""
    head, switch, _ = output.partition(ENTER_POSTSCRIPT.encode())
    lines = (head + switch).decode("utf-8").replace("\r\n", "\n").splitlines()
    for start in ("@PJL SET JOBATTR=", "@PJL COMMENT KVJOBINFO ", "@PJL SET "):
        lines = [line[len(start):] if line.startswith(start) else line for line in lines]
    return lines


def words(options):
    return options.split() if isinstance(options, str) else options


def attribute(name, value):
    return f'"@{name}={value}"'


def kept(mode, name="Report"):
    """What every job that the printer keeps begins with."""
    return mode + ([f'JOBNAME="{name}"'] if name else [])


SECURE = kept(["HOLD=STORE", "HOLDTYPE=PRIVATE", 'USERNAME="alice"', 'HOLDENCRYPTKEY="4711"'])
DUPLEX = ["-DUPLEXTYPE=SIMPLEX", "DUPLEXTYPE=DUPLEX"]
TUMBLE = ["-DUPLEXTYPE=SIMPLEX", "DUPLEXTYPE=TUMBLE"]
STAPLED = ["-STAPLE=OFF", "STAPLE=ON"]
PUNCHED = ["-PUNCH=OFF", "PUNCH=ON"]
BLACK = ["-RENDERMODE=COLOR", "-COLORMODE=COLOR", "RENDERMODE=GRAYSCALE", "COLORMODE=GRAYSCALE"]
GRAY = ["-RENDERMODE=COLOR", "-COLORMODE=COLOR"]
LANDSCAPE = [f'-{attribute("DIND", "PORTRAIT")}', attribute("DIND", "LANDSCAPE")]
BOOKLET = [f'-{attribute("DIBB", "OFF")}', f'-{attribute("DIBK", "OFF")}', *TUMBLE]


def charged(user=None, password="", account=""):
    lines = [attribute("JOAU", user), attribute("JOEP", password)] if user else []
    return [*lines, attribute("DAID", account), attribute("ACNA", "Report")]


def copies(pages, jobs):
    base = {"JOBCOPIES=1": 1, "PAGECOPIES=1": 1}
    lines = []
    for name, count in (("PAGECOPIES", pages), ("JOBCOPIES", jobs)):
        if f"{name}={count}" not in base:
            lines += [f"-{name}=1", f"{name}={count}"]
    return lines


# lp -o, and what it causes on an office printer.
SHORT_OPTIONS = [
    ("KVPrintMode=Normal", []),
    ("KVPrintMode=Secure KVPassword=4711", SECURE),
    ("KVPassword=Custom.4711", SECURE),
    ("KVPassword=4711 KVOwner=Anna KVJobName=Offer",
     kept(["HOLD=STORE", "HOLDTYPE=PRIVATE", 'USERNAME="Anna"', 'HOLDENCRYPTKEY="4711"'], "Offer")),
    (["KVPassword=4711", 'KVOwner="Anna Müller"'],
     kept(["HOLD=STORE", "HOLDTYPE=PRIVATE", 'USERNAME="Anna Müller"', 'HOLDENCRYPTKEY="4711"'])),
    ("KVPrintMode=Sample", kept(["HOLD=PROOF", 'USERNAME="alice"'])),
    ("KVPrintMode=Delay KVDelayUntil=23:30",
     ['JOBNAME="Report"', attribute("PRTM", "23:30")]),
    ("KVMailbox=12", kept(["HOLD=BOXSTORE", "BOXNUMBER=12"])),
    ("KVPrintMode=Mailbox KVMailbox=12 KVPassword=99",
     kept(["HOLD=BOXSTORE", "HOLDTYPE=PRIVATE", "BOXNUMBER=12", 'BOXENCRYPTKEY="99"'])),
    ("KVAccountUser=Login", charged("alice")),
    ("KVAccountUser=Anna", charged("Anna")),
    ("KVAccountUser=Login KVAccountPassword=swordfish", charged("alice", "swordfish")),
    ("KVAccountPassword=swordfish", charged("alice", "swordfish")),
    ("KVAccountID=4711", charged(account="4711")),
    ("KVStorageID=Box KVStoragePassword=77",
     [*charged(), attribute("ACID", "Box"), attribute("ACEP", "77")]),
    ("KVTabShift=12", [attribute("TABS", "12")]),
    ("KVTabShift=Off", [attribute("TABS", "OFF")]),
    ("KVTrim=5", [attribute("TRMR", "5")]),
    ("KVTrim=Off", [attribute("TRMR", "0")]),
    ("KVSequence=100", [attribute("MDOC", "100")]),
    ("KVSequence=Off", [attribute("MDOC", "0")]),
    ("KVOffsetStacking=Pages:10", ["JOBOFFSET=PAGES", attribute("OCSN", "10")]),
    ("KVOffsetStacking=Custom.Copies:2", ["JOBOFFSET=COPIES", attribute("OCSN", "2")]),
    ("KVOffsetStacking=Copies", ["JOBOFFSET=COPIES", attribute("OCSN", "1")]),
    ("KVDelivery=FaceUp", [attribute("FACE", "UP")]),
    ("KVDelivery=FaceDown", [attribute("FACE", "DOWN")]),
    ("KVDelivery=FaceUpReverse", [attribute("FACE", "UP_REVERSE")]),
    ("KVDelivery=FaceDownReverse", [attribute("FACE", "DOWN_REVERSE")]),
    ("KVStaple=LeftDouble", STAPLED),
    ("kvstaple=leftdouble", STAPLED),
    ("KVPunch=Left KVNumPunchHoles=2Holes", PUNCHED),
    ("KVColorMode=Black", BLACK),
    ("KVColorMode=Gray", GRAY),
    ("KVLineWeightAdjustment=Weakly2",
     [f'-{attribute("LWAD", "0")}', attribute("LWAD", "2")]),
    ("KVSignature=LeftSig",
     [*BOOKLET, attribute("DIBB", "LEFT"), attribute("DIBK", "NONEDIVIDE"),
      "-BOOKLETTYPE=TYPE[NOBOOKLET]", "BOOKLETTYPE=TYPE[NONEDIVIDE]"]),
    ("KVSignature=RightSig KVSigVol=5Sheets",
     [*BOOKLET, attribute("DIBB", "RIGHT"), attribute("DIBK", "MANUALDIVIDE"),
      "-BOOKLETTYPE=TYPE[NOBOOKLET]", "BOOKLETTYPE=TYPE[MANUALDIVIDE]:THRESHOLD[5]"]),
    ("Duplex=DuplexTumble", TUMBLE),
    ("sides=two-sided-long-edge", DUPLEX),
    ("collate=true", []),
    ("landscape=true", LANDSCAPE),
    # A text that is more than its row allows, or that would end its line.
    ('KVAccountID="a\\"b"', charged(account="a'b")),
]

# What is said of options that are not understood, and what they cause all the same.
SLIPS = [
    ("KVStaple=Nonsense", "KVStaple=Nonsense is not understood; allowed: None, UpperLeftSingle", []),
    ("KVColorMode=Colour", "KVColorMode=Colour is not understood; allowed: Color, Black, Gray", []),
    ("KVDelivery=Sideways", "KVDelivery=Sideways is not understood; allowed: Default, FaceDown", []),
    ("KVStapel=LeftDouble", "KVStapel=LeftDouble is no option of this queue; is KVStaple meant?", []),
    ("KVStaple=LeftDouble KVPunch=Right",
     " is not possible with ", None),
]

# Jobs that must not be printed.
REFUSED = [
    ("KVPrintMode=Secure", "alice", "KVPassword is needed for a secure print"),
    ("KVPassword=12345678901234567", "alice", "KVPassword has more than 16 bytes"),
    ("KVPasword=4711", "alice", "KVPasword is no option of this queue; is KVPassword meant?"),
    ("KVPrintMode=Secrue", "alice", "KVPrintMode=Secrue is not understood"),
    ("KVPrintMode=Mailbox", "alice", "has to be the number of a mailbox"),
]

# What an IPP client sends, and what it causes.
ATTRIBUTES = [
    (["keyword print-color-mode color"], []),
    (["keyword print-color-mode monochrome"], BLACK),
    (["keyword sides two-sided-long-edge"], DUPLEX),
    (["keyword sides two-sided-short-edge"], TUMBLE),
    (["enum finishings 20"], STAPLED),
    (["enum finishings 28"], STAPLED),
    (["enum finishings 74"], PUNCHED),
    (["enum finishings 20,75"], STAPLED + PUNCHED),
    (["enum finishings 3"], []),
    (["enum finishings 14"], ["JOBOFFSET=COPIES", attribute("OCSN", "1")]),
    (["keyword print-color-mode color", "keyword sides two-sided-long-edge", "enum finishings 20"],
     DUPLEX + STAPLED),
    (["integer copies 3"], copies(pages=1, jobs=3)),
    (["integer copies 3",
      "keyword multiple-document-handling separate-documents-uncollated-copies"],
     copies(pages=3, jobs=1)),
    (["integer copies 3", "keyword multiple-document-handling separate-documents-collated-copies"],
     copies(pages=1, jobs=3)),
    (["enum orientation-requested 3"], []),
    (["enum orientation-requested 4"], LANDSCAPE),
    (["keyword page-delivery same-order-face-up"], [attribute("FACE", "UP")]),
    (["keyword page-delivery reverse-order-face-down"], [attribute("FACE", "DOWN")]),
    (["name job-account-id 4711"], charged(account="4711")),
    (["name job-accounting-user-id anna"], charged("anna")),
    (["octetString job-password 4711"], SECURE),
    (["octetString job-password 4711", "keyword job-password-encryption none"], SECURE),
]

# lpadmin -o, and what it causes in a job without options.
DEFAULTS = [
    ("KVStaple=LeftDouble", STAPLED),
    ("KVPunch=Left", PUNCHED),
    ("KVColorMode=Black", BLACK),
    ("KVColorMode=Gray", GRAY),
    ("KVLineWeightAdjustment=Strongly3",
     [f'-{attribute("LWAD", "0")}', attribute("LWAD", "-3")]),
    ("KVSignature=LeftSig KVSigVol=10Sheets",
     [*BOOKLET, attribute("DIBB", "LEFT"), attribute("DIBK", "MANUALDIVIDE"),
      "-BOOKLETTYPE=TYPE[NOBOOKLET]", "BOOKLETTYPE=TYPE[MANUALDIVIDE]:THRESHOLD[10]"]),
    ("Duplex=DuplexNoTumble", DUPLEX),
    ("KVStaple=LeftDouble KVColorMode=Color", STAPLED),
    ("KVDelivery=FaceUp", [attribute("FACE", "UP")]),
    ("KVOffsetStacking=Custom.Pages:5", ["JOBOFFSET=PAGES", attribute("OCSN", "5")]),
    ("KVAccountUser=Login KVAccountID=Custom.4711", charged("alice", account="4711")),
    ("KVPrintMode=Sample KVOwner=Custom.Anna", kept(["HOLD=PROOF", 'USERNAME="Anna"'])),
    ("KVStaple-default=LeftDouble", STAPLED),
]


class FrontEndTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.scheduler = cls.enterClassContext(scheduler.Scheduler())
        cls.office = cls.scheduler.add_queue("office", ppd(OFFICE))
        cls.plain = header_of(cls.office.print(sample("plain")).output())

    def lpadmin(self, queue, options):
        for option in options.split():
            self.scheduler.run(["lpadmin", "-p", queue.name, "-o", option])

    @staticmethod
    def caused(job, plain):
        """The difference that the job's header makes."""
        header = collections.Counter(header_of(job.output()))
        without = collections.Counter(plain)
        return sorted((header - without).elements()) + [
            f"-{line}" for line in sorted((without - header).elements())]

    def expect(self, cases, plain=None):
        """Each of (job, lines, what it is); the jobs were all handed over before."""
        for job, lines, what in cases:
            with self.subTest(what):
                expected = (sorted(line for line in lines if line[0] != "-") +
                            sorted(line for line in lines if line[0] == "-"))
                self.assertEqual(self.caused(job, plain or self.plain), expected, job.log())

    def queue_with_switch(self, model):
        """A queue with a test's PPD, which knows nothing of plain CUPS, and the switch."""
        path = self.scheduler.folder / f"{model}-switch.ppd"
        path.write_text(ppd(model).read_text() + SWITCH)
        return self.scheduler.add_queue(f"{model}-switch", path)

    def test_plain_job_is_in_color_and_one_sided(self):
        expected = header_of((JOB_MODE + accounting("alice") + """\
@PJL SET JOBATTR="@LWAD=0"
@PJL SET RENDERMODE=COLOR
""" + job_information("PAGECOPIES=1", "JOBCOPIES=1", "DUPLEXTYPE=SIMPLEX", "COLORMODE=COLOR", "NUP=1",
                      "STAPLE=OFF", "PUNCH=OFF", "BOOKLETTYPE=TYPE[NOBOOKLET]") +
                      ENTER_POSTSCRIPT).encode())
        queue = self.queue_with_switch("kv1010p")
        self.assertEqual(header_of(queue.print(sample("report")).output()), expected)

        stapled = header_of(queue.print(sample("report"), ["KVStaple=LeftDouble"]).output())
        expected[expected.index("STAPLE=OFF")] = "STAPLE=ON"
        self.assertEqual(stapled, expected)
        self.lpadmin(queue, "KVStaple=LeftDouble KVColorMode=Color")
        self.assertEqual(header_of(queue.print(sample("report")).output()), expected)

    def test_book_is_cut_by_the_ppds_own_measure(self):
        queue = self.queue_with_switch("kv4110x")
        job = queue.print(sample("report"), ["KVPBindPosition=BindLeft", "KVPBindTrimming=3EdgeCut"])
        header = header_of(job.output())
        start = header.index(attribute("PBRE", "LEFT"))
        end = header.index(attribute("PBCI", "OFF"))
        self.assertEqual(header[start:end + 1], [attribute(name, value) for name, value in (
            ("PBRE", "LEFT"), ("MSDA", "ROTSEFLAND"), ("PBTC", "FULLBLEED"), ("PBBP", "A4"),
            ("PBTP", "CUSTOM"), ("PBTW", 2030), ("PBTH", 2830), ("ISXO", -35), ("ISXT", 35),
            *((name, 0) for name in ("PBAW", "PBAH", "PBAT", "PBAB", "PBAF", "PBAX", "PBAY", "PBAV")),
            ("PBCP", "OFF"), ("PBCQ", "OFF"), ("PBCC", "OFF"), ("PBCT", "AUTO"), ("PBCI", "OFF"))])

    def test_short_options(self):
        self.expect([(self.office.print(sample("plain"), words(options)), lines, options)
                     for options, lines in SHORT_OPTIONS])

    def test_slips_are_said_and_the_job_goes_on(self):
        jobs = [(self.office.print(sample("plain"), options.split()), message, lines)
                for options, message, lines in SLIPS]
        for job, message, lines in jobs:
            with self.subTest(message):
                if lines is not None:
                    self.assertEqual(self.caused(job, self.plain), lines)
                job.wait()
                warnings = [line for line in job.log().splitlines() if line.startswith("W ")]
                self.assertEqual(len(warnings), 1, job.log())
                self.assertIn(message, warnings[0])

    def test_job_that_cannot_be_confidential_is_not_printed(self):
        queue = self.scheduler.add_queue("refusing", ppd(OFFICE))
        for options, user, message in REFUSED:
            with self.subTest(options):
                job = queue.print(sample("plain"), options.split(), user=user)
                self.assertIn("stopped due to filter errors", job.end())
                errors = [line for line in job.log().splitlines() if line.startswith("E ")]
                self.assertIn(message, " ".join(errors))
                self.assertEqual(b"".join(queue.printer.jobs), b"")

    def test_password_is_in_its_line_and_nowhere_else(self):
        for options in (["KVPassword=Custom.47x11"], ["KVPassword=47x11"]):
            job = self.office.print(sample("report"), options)
            self.assertEqual(job.output().count(b"47x11"), 1)
            self.assertIn(b'@PJL SET HOLDENCRYPTKEY="47x11"\r\n', job.output())
            said = [line for line in job.log().splitlines() if "argv[5]=" not in line]
            self.assertNotIn("47x11", "\n".join(said))

    def test_ipp_attributes(self):
        plain = self.office.print_over_ipp(sample("plain"), [])
        jobs = [(self.office.print_over_ipp(sample("plain"), attributes), lines,
                 " ".join(attributes)) for attributes, lines in ATTRIBUTES]
        self.expect(jobs, header_of(plain.output()))

    def test_defaults_of_the_queue(self):
        jobs = []
        for number, (options, lines) in enumerate(DEFAULTS):
            queue = self.scheduler.add_queue(f"default{number}", ppd(OFFICE))
            self.lpadmin(queue, options)
            jobs.append((queue.print(sample("plain")), lines, options))
        self.expect(jobs)

    def test_what_was_chosen_beats_the_default(self):
        queue = self.scheduler.add_queue("chosen", ppd(OFFICE))
        self.lpadmin(queue, "KVStaple=LeftDouble KVColorMode=Black Duplex=DuplexTumble "
                            "KVDelivery=FaceUp KVPrintMode=Sample")
        jobs = [
            (["KVStaple=None", "KVColorMode=Color", "sides=one-sided", "KVDelivery=Default",
              "KVPrintMode=Normal"], []),
            (["KVStaple=TopDouble", "KVColorMode=Gray", "sides=two-sided-long-edge",
              "KVDelivery=FaceDown", "KVPassword=4711"],
             STAPLED + GRAY + DUPLEX + [attribute("FACE", "DOWN")] +
             kept(["HOLD=PROOF", 'USERNAME="alice"'])),
        ]
        job = queue.print(sample("plain"), jobs[0][0])
        self.expect([(job, [], "all taken back")])
        # A sample by default and a password are two things that cannot be had together.
        job = queue.print(sample("plain"), jobs[1][0])
        self.assertIn("stopped due to filter errors", job.end())

    def test_options_of_a_user(self):
        queue = self.scheduler.add_queue("user", ppd(OFFICE))
        self.scheduler.run(["lpoptions", "-p", "user", "-o", "KVStaple=LeftDouble",
                            "-o", "KVReportAddress=False", "-o", "KVAccountUser=Login"])
        self.expect([(queue.print(sample("plain")), STAPLED + charged("alice"), "lpoptions"),
                     (queue.print(sample("plain"), ["KVStaple=None"]), charged("alice"), "lp")])

    def test_switch_is_also_an_option_of_the_queue(self):
        queue = self.scheduler.add_queue("makers", ppd("kv1010p"))
        without = header_of(queue.print(sample("plain"), ["KVTrim=5", "KVStapel=x"]).output())
        self.assertIn("RENDERMODE=GRAYSCALE", without)
        self.assertNotIn(attribute("TRMR", 5), without)
        self.lpadmin(queue, "KVFrontEnd-default=CUPS")
        job = queue.print(sample("plain"), ["KVTrim=5"])
        header = header_of(job.output())
        self.assertIn("RENDERMODE=COLOR", header)
        self.assertIn(attribute("TRMR", 5), header)
        self.assertIn("KVStaple=None (queue default)", job.log())

    def test_names_are_charged_in_the_printers_letters(self):
        job = self.office.print(sample("plain"), ["KVAccountUser=Login"], user="jürgen",
                                title="Größe")
        header = header_of(job.output())
        for line in (attribute("LUNA", "jürgen"), attribute("JOAU", "jürgen"),
                     attribute("ACNA", "Größe")):
            self.assertIn(line, header)
        job = self.queue_with_switch("kv1160p").print(sample("plain"), user="jürgen")
        self.assertIn(attribute("LUNA", "UnknownUser"), header_of(job.output()))
        self.assertIn("UnknownUser is charged", job.log())


if __name__ == "__main__":
    scheduler.main()
