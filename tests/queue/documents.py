# SPDX-License-Identifier: Apache-2.0
"""Documents of any maker, and pictures of what a printer makes of them.

    folder = pathlib.Path(...)
    path = make("chromium.pdf", folder)
    pages = render(postscript)         # one Page a sheet side, copies included
    assert not difference(pages[0], bare[0], stamp)
"""

import dataclasses
import pathlib
import shutil
import subprocess
import tempfile

from scheduler import sample

TIMEOUT = 120  # seconds for any program
DPI = 36

# A page is shown by a procedure, as in files that people wrote by hand.
PROCEDURE = """%!PS-Adobe-3.0
%%Pages: 4
%%EndComments
/Helvetica findfont 24 scalefont setfont
/NewPage { 0 0 1 setrgbcolor 500 700 40 40 rectfill showpage } def
%%Page: 1 1
72 700 moveto (Page one) show NewPage
%%Page: 2 2
gsave 72 500 moveto (Page two) show 0.5 0.5 scale 72 72 300 300 rectclip NewPage
%%Page: 3 3
save 72 300 moveto (Page three) show NewPage restore
%%Page: 4 4
10 dict begin /show { pop } def 1 2 3 (four) 72 100 200 300 rectfill NewPage end clear
%%Trailer
%%EOF
"""

NO_COMMENTS = """%!
/Helvetica findfont 24 scalefont setfont
72 700 moveto (The only page) show
2 2 scale 0.5 setgray 40 40 100 100 rectfill
showpage
"""

# A picture stands in the page; its comments, page and showpage are not the document's.
PICTURE = """%!PS-Adobe-3.0
%%Pages: 4
%%EndComments
%%BeginProlog
/BeginEPSF { /b4 save def /dicts countdictstack def /operands count 1 sub def
userdict begin /showpage {} def } bind def
/EndEPSF { count operands sub { pop } repeat countdictstack dicts sub { end } repeat
b4 restore } bind def
%%EndProlog
""" + "".join(f"""%%Page: {page} {page}
/Helvetica findfont 24 scalefont setfont
72 700 moveto (Page {page}) show
BeginEPSF
100 {100 * page} translate
%%BeginDocument: picture.eps
%!PS-Adobe-3.0 EPSF-3.0
%%BoundingBox: 0 0 200 100
%%Pages: 1
%%EndComments
%%BeginProlog
%%EndProlog
%%BeginSetup
%%EndSetup
%%Page: 1 1
0 0 200 100 rectfill 1 setgray 10 10 50 50 rectfill
showpage
%%Trailer
%%EOF
%%EndDocument
EndEPSF
showpage
""" for page in range(1, 5)) + "%%Trailer\n%%EOF\n"

TEXT = "".join(f"Zeile {line}: Grüße, Äpfel, Öl, süß, 100 %\n" for line in range(1, 221))

HTML = "".join(f"<h1 style='page-break-before: always'>Page {page}</h1><p style='opacity: 0.5; "
               f"background: #fc8; transform: rotate({page}0deg); width: 200px'>Turned</p>"
               for page in range(1, 5)).replace("page-break-before: always", "", 1)

REPORT = sample("report")


def run(*command):
    subprocess.run([str(word) for word in command], check=True, timeout=TIMEOUT,
                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def ghostscript(device, path, source, *options):
    run("gs", "-q", "-dNOPAUSE", "-dBATCH", "-dSAFER", f"-sDEVICE={device}", *options,
        "-sPAPERSIZE=a4", "-o", path, source)


def from_pdf(*command):
    """A maker that turns the PDF of Ghostscript into something else."""
    def make_it(path):
        source = path.with_name("source.pdf")
        ghostscript("pdfwrite", source, REPORT)
        run(*command, source, path)
    return make_it


def by_chromium(path):
    page = path.with_name("page.html")
    page.write_text(HTML)
    browser = shutil.which("chromium") or "google-chrome"
    run(browser, "--headless", "--no-sandbox", "--disable-gpu", "--no-pdf-header-footer",
        f"--user-data-dir={path.parent / 'chromium'}", f"--print-to-pdf={path}", page.as_uri())


def text(content):
    return lambda path: path.write_text(content, encoding="utf-8")


MAKERS = {
    "ghostscript.pdf": lambda path: ghostscript("pdfwrite", path, REPORT),
    "cairo.pdf": from_pdf("pdftocairo", "-pdf"),
    "chromium.pdf": by_chromium,
    "umlauts.txt": text(TEXT),
    "picture.png": lambda path: ghostscript("png16m", path, REPORT, "-r50", "-dLastPage=1"),
    "picture.jpg": lambda path: ghostscript("jpeg", path, REPORT, "-r50", "-dFirstPage=3",
                                            "-dLastPage=3"),
    "report.ps": lambda path: path.write_bytes(REPORT.read_bytes()),
    "ps2write.ps": lambda path: ghostscript("ps2write", path, REPORT),
    "pdftops.ps": from_pdf("pdftops"),
    "cairo.ps": from_pdf("pdftocairo", "-ps"),
    "procedure.ps": text(PROCEDURE),
    "nocomments.ps": text(NO_COMMENTS),
    "embedded.ps": text(PICTURE),
}


def make(name, folder):
    """Makes the document `name` of MAKERS in a folder of its own below `folder`."""
    path = pathlib.Path(folder) / name.replace(".", "-") / name
    path.parent.mkdir(parents=True)
    MAKERS[name](path)
    return path


@dataclasses.dataclass(frozen=True)
class Page:
    """Pixels, three bytes each, from the top row on."""
    size: bytes  # "298 421"
    pixels: bytes


def render(postscript):
    """What a printer prints: every sheet side as often as it comes out."""
    with tempfile.TemporaryDirectory() as folder:
        source = pathlib.Path(folder, "document.ps")
        source.write_bytes(postscript)
        command = ["gs", "-q", "-dNOPAUSE", "-dBATCH", "-dSAFER", "-sDEVICE=ppmraw", f"-r{DPI}",
                   "-sPAPERSIZE=a4", "-o", f"{folder}/%04d.ppm", source]
        done = subprocess.run(command, timeout=TIMEOUT, stdin=subprocess.DEVNULL,
                              capture_output=True)
        if done.returncode != 0 or done.stdout:
            raise AssertionError(f"Ghostscript: {done.stdout[-2000:]}")
        return [read(path) for path in sorted(pathlib.Path(folder).glob("*.ppm"))]


def read(path):
    magic, rest = path.read_bytes().split(b"\n", 1)
    while rest.startswith(b"#"):
        rest = rest.split(b"\n", 1)[1]
    size, depth, pixels = rest.split(b"\n", 2)
    if magic != b"P6" or depth != b"255":
        raise AssertionError("not a picture of pixels")
    return Page(size, pixels)


INK = bytes([0xFF] * 255 + [0])  # from a byte to what hides all but white


def difference(page, bare, stamp):
    """In how many bytes `page` differs from `bare` with `stamp`, which has no byte of 255 but in
    white, on top of it; -1 if the pages have different sizes."""
    if not page.size == bare.size == stamp.size:
        return -1
    hidden = int.from_bytes(stamp.pixels.translate(INK))
    expected = (int.from_bytes(bare.pixels) & ~hidden) | (int.from_bytes(stamp.pixels) & hidden)
    wrong = expected ^ int.from_bytes(page.pixels)
    return len(page.pixels) - wrong.to_bytes(len(page.pixels)).count(0)
