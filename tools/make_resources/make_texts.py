#!/usr/bin/env python3
"""Turns the UTF-8 sources in texts/ into the delivered input texts: Windows-1256, CR LF line ends, nothing inserted."""

import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
SOURCES = HERE / "texts"
TARGET = HERE.parent.parent / "Resources"
SUFFIX = ".utf8.txt"


def encoded(source):
    """The bytes for one source file. Ends the program when a character is not in the code page."""
    lines = source.read_bytes().decode("utf-8").split("\n")
    result = []
    for number, line in enumerate(lines, start=1):
        for column, character in enumerate(line, start=1):
            try:
                character.encode("cp1256")
            except UnicodeEncodeError:
                sys.exit(f"{source.name}:{number}:{column}: U+{ord(character):04X} is not in Windows-1256")
            if character == "\r":
                sys.exit(f"{source.name}:{number}: the sources have LF line ends")
        result.append(line.encode("cp1256"))
    return b"\r\n".join(result)


def main():
    sources = sorted(SOURCES.glob("*" + SUFFIX))
    if not sources:
        sys.exit(f"no *{SUFFIX} in {SOURCES}")
    TARGET.mkdir(exist_ok=True)
    for source in sources:
        data = encoded(source)
        target = TARGET / (source.name.removesuffix(SUFFIX) + ".txt")
        target.write_bytes(data)
        print(f"{target.name}: {len(data)} bytes")


if __name__ == "__main__":
    main()
