#!/usr/bin/env python3
"""Makes Resources/Help.rtf, the guide that the help window shows, from guide.fa.txt and pictures/.

README.md tells the markup. The result is RTF 1.9.1, 7-bit, the same bytes for the same input. It
keeps to what both the help window and a word processor show alike: paragraphs, sizes, bold,
colours and pictures; no tables, and no space between paragraphs but small blank ones.

    make_guide.py           writes Resources/Help.rtf
    make_guide.py --check   says whether it is what would be written; status 1 if not
"""

import re
import struct
import sys
from pathlib import Path

HERE = Path(__file__).resolve().parent
SOURCE = HERE / "guide.fa.txt"
PICTURES = HERE / "pictures"
RESULT = HERE.parent.parent / "Resources" / "Help.rtf"

TWIPS_PER_PIXEL = 15  # as the tool's windows measure
# What fits beside the scroll bar of the help window, and between the margins of an A4 page.
WIDEST_PICTURE = 9600

FONT = "Tahoma"
INDENT = 400  # of a step's text after its number; the help window knows no indents

# Sizes in half points.
TITLE, HEADING, SUBHEADING, BODY, CAPTION, GAP = 44, 32, 26, 22, 19, 10
TEAL = 1  # in the colour table
GREY = 2

LEFT_TO_RIGHT_MARK = "\u200e"
NO_BREAK_SPACE = "\u00a0"
PERSIAN_DIGITS = str.maketrans("0123456789", "۰۱۲۳۴۵۶۷۸۹")


class GuideError(Exception):
    """A line of the source that can't be understood."""


# ---- The source: a list of blocks (kind, text) ------------------------------------------------

STARTS = {
    "### ": "subheading",
    "## ": "heading",
    "# ": "title",
    "+ ": "step",
    "- ": "bullet",
    "! ": "picture",
}


def start_of(line):
    """The kind of block that a line opens, and the rest of the line; None for a line of text."""
    for mark, kind in STARTS.items():
        if line.startswith(mark):
            return kind, line[len(mark):].strip()
    return None


def read_blocks(source):
    blocks = []
    is_open = False  # further lines belong to the last block
    for number, line in enumerate(source.splitlines(), 1):
        line = line.rstrip()
        if line.startswith(";"):
            continue
        start = start_of(line)
        if start:
            kind, text = start
            blocks.append([kind, text, number])
            is_open = kind in ("step", "bullet")
        elif not line:
            is_open = False
        elif is_open:
            blocks[-1][1] += " " + line.strip()
        else:
            blocks.append(["text", line.strip(), number])
            is_open = True
    return blocks


# ---- RTF ----------------------------------------------------------------------------------------

def escaped(text):
    """Text as RTF. Each character stands as its number, with a byte of Windows-1256 after it for
    readers that know no numbers."""
    pieces = []
    for character in text:
        code = ord(character)
        if character in "\\{}":
            pieces.append("\\" + character)
        elif 0x20 <= code < 0x7F:
            pieces.append(character)
        elif code > 0xFFFF or code < 0x20:
            raise GuideError(f"a character that can't be written: U+{code:04X}")
        else:
            byte = character.encode("cp1256", "replace")[0]
            pieces.append(f"\\u{code if code < 0x8000 else code - 0x10000}\\'{byte:02x}")
    return "".join(pieces)


def run(text, size, bold=False, colour=0, is_latin=False):
    # The second half counts for the script that the run is in; both say the same.
    plain = f"\\f0\\fs{size}" + ("\\b" if bold else "")
    complex_script = f"\\af0\\afs{size}" + ("\\ab" if bold else "")
    if is_latin:
        look = f"\\rtlch{complex_script}\\ltrch\\lang1033\\noproof{plain}"
    else:
        look = f"\\ltrch{plain}\\rtlch{complex_script}"
    tint = f"\\cf{colour}" if colour else ""
    return f"{{{look}{tint} {escaped(text)}}}"


MARKUP = re.compile(r"\*\*(?P<bold>.+?)\*\*|`(?P<code>[^`]+)`")


def left_to_right(code):
    """What a line may not be broken in. Marks keep signs at its ends from changing sides."""
    whole = code.replace(" ", NO_BREAK_SPACE)
    if whole[0].isalpha() and whole[-1].isalnum():
        return whole
    return LEFT_TO_RIGHT_MARK + whole + LEFT_TO_RIGHT_MARK


def runs(text, size, bold=False, colour=0):
    pieces = []
    at = 0
    for found in MARKUP.finditer(text):
        if found.start() > at:
            pieces.append(run(text[at:found.start()], size, bold, colour))
        if found["code"]:
            pieces.append(run(left_to_right(found["code"]), size, bold, colour, is_latin=True))
        else:
            pieces.append(runs(found["bold"], size, True, colour))
        at = found.end()
    if at < len(text):
        pieces.append(run(text[at:], size, bold, colour))
    return "".join(pieces)


def paragraph(content, words="\\qr"):
    return f"\\pard\\plain\\rtlpar{words}{content}\\par\n"


def gap(size=GAP, keeps_with_next=False):
    return paragraph(run(" ", size), "\\keepn\\qr" if keeps_with_next else "\\qr")


def png_size(data):
    if data[:8] != b"\x89PNG\r\n\x1a\n":
        raise GuideError("no PNG")
    return struct.unpack(">II", data[16:24])


def picture(text):
    """`name caption`: the picture in its own size on the screen, the caption below it."""
    name, caption = (text.split(None, 1) + [""])[:2]
    data = (PICTURES / f"{name}.png").read_bytes()
    width, height = png_size(data)
    if width * TWIPS_PER_PIXEL > WIDEST_PICTURE:
        raise GuideError(f"{name} is {width} pixels wide, {WIDEST_PICTURE // TWIPS_PER_PIXEL} fit")
    digits = data.hex()
    lines = "\n".join(digits[at:at + 128] for at in range(0, len(digits), 128))
    # The sizes in hundredths of a millimetre are as the format asks; the goals are what counts.
    pixels = f"\\picw{round(width * 2540 / 96)}\\pich{round(height * 2540 / 96)}"
    goals = f"\\picwgoal{width * TWIPS_PER_PIXEL}\\pichgoal{height * TWIPS_PER_PIXEL}"
    centred = "\\keepn\\qc" if caption else "\\qc"
    shown = f"{{\\pict\\pngblip{pixels}{goals}\n{lines}}}"
    result = gap(keeps_with_next=True) + paragraph(shown, centred)
    if caption:
        result += paragraph(runs(caption, CAPTION, colour=GREY), "\\qc")
    return result + gap()


def block(kind, text, step):
    if kind == "title":
        return paragraph(runs(text, TITLE, True, TEAL), "\\qc") + gap()
    if kind == "heading":
        words = paragraph(runs(text, HEADING, True, TEAL), "\\keepn\\qr")
        return gap(BODY) + words + gap(keeps_with_next=True)
    if kind == "subheading":
        return gap() + paragraph(runs(text, SUBHEADING, True), "\\keepn\\qr")
    if kind == "picture":
        return picture(text)
    if kind == "text":
        return paragraph(runs(text, BODY)) + gap()
    label = f"{step}. ".translate(PERSIAN_DIGITS) if kind == "step" else "• "
    # A reader that knows \rin takes it for \ri.
    indent = f"\\qr\\li{INDENT}\\lin{INDENT}\\fi-{INDENT}"
    return paragraph(run(label, BODY, kind == "step") + runs(text, BODY), indent) + gap(GAP // 2)


HEAD = (
    "{\\rtf1\\ansi\\ansicpg1256\\uc1\\deff0\\adeff0\\deflang1065\\adeflang1065\n"
    f"{{\\fonttbl{{\\f0\\fswiss\\fcharset178 {FONT};}}}}\n"
    "{\\colortbl;\\red21\\green128\\blue139;\\red110\\green110\\blue110;}\n"
    "\\paperw11906\\paperh16838\\margl1134\\margr1134\\margt1134\\margb1134\\rtldoc\n"
)


def guide(source):
    pieces = [HEAD]
    step = 0
    for kind, text, number in read_blocks(source):
        if kind == "step":
            step += 1
        elif kind != "picture":  # a picture stands within a list
            step = 0
        try:
            pieces.append(block(kind, text, step))
        except (GuideError, OSError) as error:
            raise GuideError(f"{SOURCE.name}, line {number}: {error}") from error
    pieces.append("}\n")
    return "".join(pieces).encode("ascii")


def main(arguments):
    try:
        made = guide(SOURCE.read_text(encoding="utf-8"))
    except (GuideError, OSError) as error:
        print(error, file=sys.stderr)
        return 1
    if arguments == ["--check"]:
        if RESULT.is_file() and RESULT.read_bytes() == made:
            return 0
        print(f"{RESULT} isn't what {SOURCE.name} says: run {Path(__file__).name}", file=sys.stderr)
        return 1
    if arguments:
        print(__doc__, file=sys.stderr)
        return 2
    RESULT.write_bytes(made)
    print(f"{RESULT}: {len(made)} bytes")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
