#!/usr/bin/env python3
"""Makes the corpus of rich texts beside this script: libreoffice.corpus and abiword.corpus.

Fifty-four texts are written here as ODT files, each with one kind of thing that word processors know
(links, notes, tables, fields ...) between Persian and mixed paragraphs. Both programs convert them to
RTF, and each converts its own RTF to its own plain text. A corpus file holds, one after another,

    NAME SIZE-OF-RTF SIZE-OF-TEXT, a line
    the rich text
    the plain text

Needed: soffice, abiword and xvfb-run. The results are committed; the tests don't run this script.

    python3 make_corpus.py [folder for the ODT files and the programs' profiles]
"""

import pathlib
import random
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "rtf"))

import make_samples as samples  # noqa: E402
from make_samples import items, link, note, paragraph, picture, span, table  # noqa: E402

WORDS = """کتاب باغ کویر شهر آب درخت مردم بهار خانه پنجره چشمه گلستان زمستان راه کوه آسمان شب روز داستان
پدر مادر ژاله سفر دریا قنات کاروان ستاره هستی می‌رویم کتاب‌ها نامه‌ای خانهٔ پرّنده مسأله مؤمن جزئی""".split()
ARABIC = "كتاب يوم علي شيء إلى ماء مدرسة هذا الذي".split()
LATIN = "river garden naïve café Zürich window bridge 12.5 A4 road".split()
OTHERS = ["Ελληνικά γράμματα", "Русский язык", "日本語の表", "中文 許功", "한국어 글", "עברית שפה", "ภาษาไทย",
          "Łódź čeština", "Türkçe ğıİş", "Tiếng Việt ₫", "latviešu ķ", "𐎠𐎡 😀 🕌"]
SIGNS = "« » “ ” ‘ ’ – — … • ٪ ، ؛ ؟ € § © ½ ± × ÷ ° № ™ ≠ ∞ ﷼ ﷲ ۝".split()


class Author:
    def __init__(self, name):
        self.random = random.Random(name)

    def words(self, count, words=None):
        return " ".join(self.random.choice(words or WORDS) for _ in range(count))

    def sentence(self):
        mixed = self.random.choice([WORDS, WORDS, ARABIC])
        middle = self.random.choice(["", " " + self.words(2, LATIN), " ۱۲٫۵", " 1384"])
        return self.words(self.random.randint(2, 6), mixed) + middle + self.random.choice(".؟!؛:")

    def plain(self):
        text = " ".join(self.sentence() for _ in range(self.random.randint(1, 3)))
        return paragraph(text, self.random.choice("RRRCJ"))

    def latin(self):
        return paragraph(self.words(6, LATIN) + ".", "L")


def end_note(text):
    return note(text).replace("footnote", "endnote").replace('"n1"', '"n2"')


def comment(text):
    return (f'<office:annotation><dc:creator>نویسنده</dc:creator><dc:date>2020-01-01T00:00:00</dc:date>'
            f"<text:p>{text}</text:p></office:annotation>")


def heading(text, level=1):
    return f'<text:h text:outline-level="{level}" text:style-name="H">{text}</text:h>'


def nested_items(style, author):
    inner = items(style, [author.words(2), author.words(3)])
    first = paragraph(author.words(2))
    return (f'<text:list text:style-name="{style}"><text:list-item>{first}{inner}</text:list-item>'
            f"<text:list-item>{paragraph(author.words(3))}</text:list-item></text:list>")


def text_box(text):
    return ('<draw:frame draw:name="box" text:anchor-type="paragraph" svg:width="4cm" svg:height="2cm">'
            f"<draw:text-box>{paragraph(text)}</draw:text-box></draw:frame>")


def changed(author, which):
    """Text with a change that was recorded: put in or taken out."""
    if which == "insertion":
        return paragraph(author.words(2) + ' <text:change-start text:change-id="c1"/>' + author.words(2)
                         + '<text:change-end text:change-id="c1"/> ' + author.words(2))
    return paragraph(author.words(2) + '<text:change text:change-id="c2"/> ' + author.words(2))


def changes(author):
    info = "<office:change-info><dc:creator>ک</dc:creator><dc:date>2020-01-01T00:00:00</dc:date></office:change-info>"
    return (f'<text:tracked-changes><text:changed-region text:id="c1"><text:insertion>{info}</text:insertion>'
            f'</text:changed-region><text:changed-region text:id="c2"><text:deletion>{info}'
            f"{paragraph(' ' + author.words(2))}</text:deletion></text:changed-region></text:tracked-changes>")


def links(a):
    return [paragraph(f"{a.words(2)} {link(a.words(2))} {a.words(2)}"),
            paragraph(link(a.words(1)) + "، " + link(a.words(2, LATIN)) + "."),
            paragraph(f"see {link(span('b', 'this') + ' one')}, too", "L"),
            paragraph(a.words(1) + link(a.words(1)) + a.words(1))]


def notes(a):
    return [paragraph(a.words(3) + note(a.sentence()) + " " + a.words(2)),
            paragraph(a.words(2) + end_note(a.sentence())),
            paragraph(link(a.words(1)) + note(a.words(2, LATIN)) + ".")]


def lists(a):
    return [items("bullets", [a.words(2), a.words(3), a.words(1)]), a.plain(),
            items("numbers", [a.words(2), a.sentence()]), nested_items("numbers", a)]


def tables(a):
    rows = a.random.randint(2, 4)
    return [table([[a.words(2), a.words(1), a.words(1, LATIN)] for _ in range(rows)]), a.plain(),
            table([["", a.words(1)], [span("b", a.words(1)), ""]])]


def fields(a):
    return [paragraph(f"{a.words(1)} <text:page-count>1</text:page-count> {a.words(1)}"),
            paragraph(a.words(1) + ' <text:date style:data-style-name="D" text:date-value="2020-02-03" '
                      'text:fixed="true">2020-02-03</text:date> ' + a.words(1)),
            paragraph(a.words(1) + " <text:title>عنوان</text:title> " + a.words(1)),
            paragraph('<text:bookmark-start text:name="m"/>' + a.words(2) + '<text:bookmark-end text:name="m"/>')]


def symbols(a):
    return [paragraph(a.words(1) + " " + " ".join(a.random.sample(SIGNS, 9)) + " " + a.words(1)),
            paragraph("نیم‌فاصله هٔ ه‍ &#x200F;راست&#x200E; &#xA0;ثابت نرم&#xAD;خط خط&#x2011;پیوند"),
            paragraph("{ \\ } ~ * &lt;tag&gt; &amp;amp; 100% #1", "L"),
            paragraph(a.words(1) + "<text:tab/>" + a.words(1) + "<text:line-break/>" + a.words(1)
                      + '<text:s text:c="3"/>' + a.words(1))]


def code_pages(a):
    return [paragraph(a.words(1) + " " + other + " " + a.words(1)) for other in a.random.sample(OTHERS, 5)]


def styles(a):
    return [heading(a.words(3)), heading(a.words(2), 2),
            paragraph(span("b", a.words(2)) + " " + span("i", a.words(1)) + span("u", a.words(1, LATIN))),
            paragraph(span("big", a.words(1) + span("red", a.words(1))) + a.words(1)),
            paragraph("H" + span("sub", "2") + "O و x" + span("sup", "2") + " " + span("caps", "small Caps"))]


def comments(a):
    return [paragraph(a.words(2) + comment(a.sentence()) + " " + a.words(2)),
            paragraph(comment(a.words(1, LATIN)) + a.words(3))]


def hidden(a):
    return [paragraph(a.words(2) + span("hidden", " " + a.words(2)) + " " + a.words(1)),
            paragraph(span("hidden", a.words(3)) + a.words(2)), paragraph(a.words(2) + "‏" + a.words(1))]


def headers(a):
    return [a.plain(), a.latin(), paragraph(a.words(3))]


def boxes(a):
    return [paragraph(text_box(a.words(3)) + a.words(3)), a.plain()]


def pictures(a):
    return [paragraph(a.words(2) + " " + picture("a.png") + " " + a.words(2)),
            paragraph(picture("b.jpg") + "{0}"), a.plain()]


def marks(a):
    return [changes(a), changed(a, "insertion"), changed(a, "deletion"), a.plain()]


def breaks(a):
    return [a.plain(), paragraph(a.words(3), "P"), paragraph(""), paragraph("  " + a.words(2) + "  "),
            f'<text:section text:name="s">{a.plain()}</text:section>', a.latin()]


def mixture(a):
    makers = a.random.sample([links, notes, lists, tables, symbols, code_pages, styles, comments, hidden], 3)
    return [part for make in makers for part in make(a)]


KINDS = [links, notes, lists, tables, fields, symbols, code_pages, styles, comments, hidden, headers, boxes,
         pictures, marks, breaks, mixture]
COUNT = 54

MORE_STYLES = """
<style:style style:name="P" style:family="paragraph">
  <style:paragraph-properties fo:break-before="page" style:writing-mode="rl-tb"/></style:style>
<style:style style:name="H" style:family="paragraph">
  <style:paragraph-properties style:writing-mode="rl-tb"/>
  <style:text-properties fo:font-weight="bold" fo:font-size="16pt"/></style:style>
<style:style style:name="sub" style:family="text"><style:text-properties style:text-position="sub 58%"/></style:style>
<style:style style:name="sup" style:family="text"><style:text-properties style:text-position="super 58%"/></style:style>
<style:style style:name="caps" style:family="text"><style:text-properties fo:font-variant="small-caps"/></style:style>
<style:style style:name="hidden" style:family="text"><style:text-properties text:display="none"/></style:style>
"""

PAGE_STYLES = f"""<?xml version="1.0" encoding="UTF-8"?><office:document-styles {samples.NAMESPACES}
 office:version="1.2"><office:automatic-styles><style:page-layout style:name="L"><style:header-style/>
 <style:footer-style/></style:page-layout></office:automatic-styles><office:master-styles>
 <style:master-page style:name="Standard" style:page-layout-name="L">
 <style:header><text:p>سرصفحه header</text:p></style:header>
 <style:footer><text:p>پاصفحه footer <text:page-number>1</text:page-number></text:p></style:footer>
 </style:master-page></office:master-styles></office:document-styles>"""


def texts():
    for number in range(COUNT):
        kind = KINDS[number % len(KINDS)]
        name = f"{kind.__name__}{number // len(KINDS) + 1}"
        author = Author(name)
        body = kind(author)
        yield name, [part for part in body if part.startswith("<text:tracked")] + [author.plain()] + [
            part for part in body if not part.startswith("<text:tracked")] + [author.plain()]


def gather(folder, names, target):
    with open(target, "wb") as corpus:
        for name in names:
            rtf = (folder / f"{name}.rtf").read_bytes()
            text = (folder / f"{name}.txt").read_bytes()
            corpus.write(f"{name} {len(rtf)} {len(text)}\n".encode() + rtf + text)


def abiword_can(folder, abi, name):
    """Whether AbiWord lives through its own rich text: comments end it."""
    try:
        samples.run_abiword("rtf", folder / f"{name}.odt", abi / f"{name}.rtf")
        samples.run_abiword("txt", abi / f"{name}.rtf", abi / f"{name}.txt")
    except subprocess.CalledProcessError:
        print(f"AbiWord fails on {name}")
        return False
    return True


def main():
    samples.NAMESPACES += ' xmlns:dc="http://purl.org/dc/elements/1.1/"'
    samples.STYLES += MORE_STYLES
    folder = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else tempfile.mkdtemp())
    lo, abi = folder / "libreoffice", folder / "abiword"
    for part in (lo, abi):
        part.mkdir(parents=True, exist_ok=True)
    names = []
    for name, body in texts():
        samples.write_odt(folder / f"{name}.odt", body, PAGE_STYLES if name.startswith("headers") else None)
        names.append(name)
    samples.run_libreoffice(lo, "rtf", [folder / f"{name}.odt" for name in names])
    samples.run_libreoffice(lo, "txt:Text (encoded):UTF8", [lo / f"{name}.rtf" for name in names])
    gather(lo, names, HERE / "libreoffice.corpus")
    gather(abi, [name for name in names if abiword_can(folder, abi, name)], HERE / "abiword.corpus")


if __name__ == "__main__":
    main()
