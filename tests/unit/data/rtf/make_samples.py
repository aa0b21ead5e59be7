#!/usr/bin/env python3
"""Makes the sample rich texts beside this script.

Each sample is written here as an ODT, converted by LibreOffice and by AbiWord to RTF, and each of
those RTF files is converted by the program that wrote it to the program's own plain text. Needed:
soffice, abiword and xvfb-run. The results are committed; the tests don't run this script.

    python3 make_samples.py [folder for the ODT files and the programs' profiles]
"""

import pathlib
import shutil
import struct
import subprocess
import sys
import tempfile
import zipfile
import zlib

HERE = pathlib.Path(__file__).resolve().parent

NAMESPACES = " ".join(
    f'xmlns:{prefix}="urn:oasis:names:tc:opendocument:xmlns:{name}:1.0"'
    for prefix, name in [
        ("office", "office"), ("text", "text"), ("table", "table"), ("style", "style"),
        ("draw", "drawing"), ("fo", "xsl-fo-compatible"), ("svg", "svg-compatible"),
    ]
) + ' xmlns:xlink="http://www.w3.org/1999/xlink"'

STYLES = """
<style:style style:name="R" style:family="paragraph">
  <style:paragraph-properties fo:text-align="end" style:writing-mode="rl-tb"/></style:style>
<style:style style:name="L" style:family="paragraph">
  <style:paragraph-properties fo:text-align="start" style:writing-mode="lr-tb"/></style:style>
<style:style style:name="C" style:family="paragraph">
  <style:paragraph-properties fo:text-align="center" style:writing-mode="rl-tb"/></style:style>
<style:style style:name="J" style:family="paragraph">
  <style:paragraph-properties fo:text-align="justify" style:writing-mode="rl-tb"/></style:style>
<style:style style:name="b" style:family="text">
  <style:text-properties fo:font-weight="bold" style:font-weight-complex="bold"/></style:style>
<style:style style:name="i" style:family="text">
  <style:text-properties fo:font-style="italic" style:font-style-complex="italic"/></style:style>
<style:style style:name="u" style:family="text">
  <style:text-properties style:text-underline-style="solid" style:text-underline-width="auto"
    style:text-underline-color="font-color"/></style:style>
<style:style style:name="big" style:family="text">
  <style:text-properties fo:font-size="20pt" style:font-size-complex="20pt"/></style:style>
<style:style style:name="red" style:family="text">
  <style:text-properties fo:color="#c00000" fo:background-color="#ffff00"/></style:style>
<text:list-style style:name="bullets"><text:list-level-style-bullet text:level="1"
  text:bullet-char="&#x2022;"/></text:list-style>
<text:list-style style:name="numbers"><text:list-level-style-number text:level="1"
  style:num-format="1" style:num-suffix="."/></text:list-style>
"""


def paragraph(text, style="R"):
    return f'<text:p text:style-name="{style}">{text}</text:p>'


def span(style, text):
    return f'<text:span text:style-name="{style}">{text}</text:span>'


def items(style, texts):
    rows = "".join(f"<text:list-item>{paragraph(text)}</text:list-item>" for text in texts)
    return f'<text:list text:style-name="{style}">{rows}</text:list>'


def table(rows):
    cells = "".join(
        "<table:table-row>"
        + "".join(f"<table:table-cell>{paragraph(cell)}</table:table-cell>" for cell in row)
        + "</table:table-row>"
        for row in rows
    )
    columns = f'<table:table-column table:number-columns-repeated="{len(rows[0])}"/>'
    return f'<table:table table:name="T">{columns}{cells}</table:table>'


def note(text):
    return (
        '<text:note text:id="n1" text:note-class="footnote"><text:note-citation>1'
        f"</text:note-citation><text:note-body>{paragraph(text)}</text:note-body></text:note>"
    )


def picture(name):
    return (
        f'<draw:frame draw:name="{name}" text:anchor-type="as-char" svg:width="1cm" '
        f'svg:height="1cm"><draw:image xlink:href="Pictures/{name}" xlink:type="simple"/>'
        "</draw:frame>"
    )


def link(text):
    return f'<text:a xlink:type="simple" xlink:href="http://example.com/a?b=c&amp;d">{text}</text:a>'


def png():
    def chunk(kind, data):
        body = kind + data
        return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body))

    rows = b"".join(b"\0" + bytes([x * 60, y * 60, 128] * 1) * 4 for y in range(4) for x in [y])
    header = struct.pack(">IIBBBBB", 4, 4, 8, 2, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows))
            + chunk(b"IEND", b""))


def jpeg():
    """One grey block of 8 by 8: one code for "no change", one for "end of block"."""
    def segment(mark, data):
        return bytes([0xFF, mark]) + struct.pack(">H", len(data) + 2) + data

    one_code = bytes([1] + [0] * 15 + [0])
    return (b"\xff\xd8"
            + segment(0xE0, b"JFIF\0\x01\x01\x01\0\x48\0\x48\0\0")
            + segment(0xDB, bytes([0]) + bytes([16] * 64))
            + segment(0xC0, struct.pack(">BHHB", 8, 8, 8, 1) + bytes([1, 0x11, 0]))
            + segment(0xC4, bytes([0x00]) + one_code) + segment(0xC4, bytes([0x10]) + one_code)
            + segment(0xDA, bytes([1, 1, 0, 0, 63, 0])) + b"\x3f\xff\xd9")


SAMPLES = {
    "paragraphs": [
        paragraph("به نام خداوند جان و خرد"),
        paragraph("این کتاب‌ها را می‌خوانیم؛ «نخست» این، سپس آن."),
        paragraph("يك متن با حروف عربي: كتاب ي و ك ة ئ أ إ"),
        paragraph("A left-to-right line: 100% {braces} \\back\\slash, naïve café.", "L"),
        paragraph("متن فارسی with English words در میان و عدد 12.5 و ۱۲٫۵"),
        paragraph("وسط‌چین", "C"),
        paragraph("این بند کشیده است و چند کلمه دارد تا پر شود.", "J"),
        paragraph(""),
        paragraph("پایان متن"),
    ],
    "formats": [
        paragraph("ساده " + span("b", "درشت") + " " + span("i", "کج") + " " + span("u", "زیرخط")),
        paragraph(span("big", "بزرگ") + " و " + span("red", "رنگی") + " و ساده"),
        paragraph("plain " + span("b", "bold") + " " + span("red", "red on yellow"), "L"),
        paragraph("یک<text:line-break/>دو<text:tab/>سه"),
        paragraph("فاصله&#xA0;ثابت، نرم&#xAD;خط، خط&#x2011;پیوند، &#x2014; &#x2013; &#x2026; &#x201C;q&#x201D;"),
    ],
    "symbols": [
        paragraph("شکلک 😀 و 🕌 و 𐎠𐎡 پایان"),
        paragraph("日本語 中文 한국어 Ελληνικά Русский עברית"),
        paragraph("نیم‌فاصله می‌شود، چسبان ه‍ و نشان&#x200F;راست&#x200E;چپ"),
        paragraph("ژ گ چ پ ۀ هٔ"),
    ],
    "lists": [
        paragraph("پیش از فهرست"),
        items("bullets", ["سیب", "انار", "به"]),
        paragraph("میان دو فهرست"),
        items("numbers", ["نخست", "دوم", "سوم"]),
        paragraph("پس از فهرست"),
    ],
    "table": [
        paragraph("پیش از جدول"),
        table([["نام", "سال", "جای"], ["فردوسی", "۳۲۹", "توس"], ["حافظ", "۷۲۷", "شیراز"]]),
        paragraph("پس از جدول"),
    ],
    "note": [
        paragraph("متن با پانویس" + note("این پانویس است.") + " و دنبالهٔ متن"),
        paragraph("بند دیگر"),
    ],
    "links": [
        paragraph("پیش " + link("پیوند نخست") + " میان " + link("second link") + " پس"),
        paragraph("see " + link(span("b", "this") + " one") + note("پانویس") + ", too", "L"),
        items("bullets", [link("سیب"), "انار " + link("شیرین")]),
        paragraph("پایان"),
    ],
    "pictures": [
        paragraph("پیش " + picture("a.png") + " میان " + picture("b.jpg") + " پس"),
        paragraph(picture("a.png") + "{0}"),
        paragraph("پایان"),
    ],
}


def write_odt(path, body, page_styles=None):
    mime = "application/vnd.oasis.opendocument.text"
    content = (
        f'<?xml version="1.0" encoding="UTF-8"?><office:document-content {NAMESPACES} '
        f'office:version="1.2"><office:automatic-styles>{STYLES}</office:automatic-styles>'
        f'<office:body><office:text>{"".join(body)}</office:text></office:body>'
        "</office:document-content>"
    )
    manifest_name = "urn:oasis:names:tc:opendocument:xmlns:manifest:1.0"
    entries = [("/", mime), ("content.xml", "text/xml"), ("Pictures/a.png", "image/png"),
               ("Pictures/b.jpg", "image/jpeg")]
    entries += [("styles.xml", "text/xml")] if page_styles else []
    manifest = (
        f'<?xml version="1.0" encoding="UTF-8"?><manifest:manifest xmlns:manifest="{manifest_name}" '
        'manifest:version="1.2">'
        + "".join(f'<manifest:file-entry manifest:full-path="{name}" manifest:media-type="{kind}"/>'
                  for name, kind in entries)
        + "</manifest:manifest>"
    )
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as odt:
        odt.writestr(zipfile.ZipInfo("mimetype"), mime)
        odt.writestr("content.xml", content)
        odt.writestr("META-INF/manifest.xml", manifest)
        if page_styles:
            odt.writestr("styles.xml", page_styles)
        odt.writestr("Pictures/a.png", png())
        odt.writestr("Pictures/b.jpg", jpeg())


def run_libreoffice(folder, target, files):
    subprocess.run(
        ["soffice", f"-env:UserInstallation=file://{folder}/profile", "--headless",
         "--convert-to", target, "--outdir", str(folder), *map(str, files)],
        check=True, stdout=subprocess.DEVNULL)


def run_abiword(target, source, result):
    subprocess.run(["xvfb-run", "-a", "abiword", f"--to={target}", f"--to-name={result}",
                    str(source)], check=True, stderr=subprocess.DEVNULL)


def main():
    folder = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else tempfile.mkdtemp())
    lo, abi = folder / "libreoffice", folder / "abiword"
    for part in (lo, abi):
        part.mkdir(parents=True, exist_ok=True)
    for name, body in SAMPLES.items():
        write_odt(folder / f"{name}.odt", body)

    run_libreoffice(lo, "rtf", [folder / f"{name}.odt" for name in SAMPLES])
    run_libreoffice(lo, "txt:Text (encoded):UTF8", [lo / f"{name}.rtf" for name in SAMPLES])
    for name in SAMPLES:
        run_abiword("rtf", folder / f"{name}.odt", abi / f"{name}.rtf")
        run_abiword("txt", abi / f"{name}.rtf", abi / f"{name}.txt")
        for part in (lo, abi):
            for kind in ("rtf", "txt"):
                shutil.copyfile(part / f"{name}.{kind}", HERE / f"{part.name}_{name}.{kind}")


if __name__ == "__main__":
    main()
