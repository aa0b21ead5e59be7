#!/usr/bin/env python3
"""Turns the UTF-8 sources in export/ into Export.inf (Windows-1256) and Default.html (UTF-16LE with mark), both with CR LF."""

import codecs
import pathlib

HERE = pathlib.Path(__file__).resolve().parent
SOURCES = HERE / "export"
TARGET = HERE.parent.parent / "Resources"


def lines_of(name):
    """The text of a source with CR LF line ends."""
    return (SOURCES / name).read_bytes().decode("utf-8").replace("\n", "\r\n")


def main():
    TARGET.mkdir(exist_ok=True)
    script = lines_of("Export.utf8.inf").encode("cp1256")
    page = codecs.BOM_UTF16_LE + lines_of("Default.utf8.html").encode("utf-16-le")
    for name, data in (("Export.inf", script), ("Default.html", page)):
        (TARGET / name).write_bytes(data)
        print(f"{name}: {len(data)} bytes")


if __name__ == "__main__":
    main()
