"""The rebuilding of a text's paragraphs with Python's own string functions.

rebuild_paragraphs.py INPUT OUTPUT: rebuilds the text of INPUT (UTF-16, little-endian) into OUTPUT
with all options on and 22 words a line, says "ready", and then answers each line with the seconds
that rebuilding it once more took.
"""

import sys
from itertools import dropwhile
from operator import not_
from time import perf_counter

MARK = "\u200f"
BREAK = "\r\n"
WORDS = 22


def without_breaks(text):
    text = text.replace(BREAK + BREAK, "#0#").replace(BREAK, " ").replace("#0#", BREAK)
    while "  " in text:
        text = text.replace("  ", " ")
    return text


def broken_at_marks(text):
    text = text.replace(".", "." + MARK + BREAK)
    text = text.replace("!", "!" + MARK + BREAK)
    return text.replace("\u061f", "\u061f" + BREAK)


def wrapped(line):
    """The line in pieces of WORDS words. Each break moves the end of the line by one character but
    not the place up to which it is looked at."""
    words = line.split(" ")
    if len(words) - 1 <= WORDS:
        return line
    end = line.rindex(" ")
    first = 0
    length = 0  # of the pieces so far
    pieces = []
    after = WORDS + (words[0] == "")  # a blank at the line's start doesn't count
    while after < len(words):
        piece = " ".join(words[first:after])
        last_blank = length + len(piece) - len(words[after - 1]) - 1
        if last_blank + len(pieces) >= end:
            break
        pieces.append(piece)
        length += len(piece) + 1
        first = after
        after += WORDS
    pieces.append(" ".join(words[first:]))
    return BREAK.join(pieces)


def rebuilt(text):
    lines = broken_at_marks(without_breaks(text)).split(BREAK)
    text = BREAK.join(map(wrapped, dropwhile(not_, lines))) + BREAK
    while BREAK + MARK + " " in text:
        text = text.replace(BREAK + MARK + " ", BREAK)
    return text


def main():
    with open(sys.argv[1], "rb") as file:
        text = file.read().decode("utf-16-le")
    with open(sys.argv[2], "wb") as file:
        file.write(rebuilt(text).encode("utf-16-le"))
    print("ready", flush=True)
    for _ in sys.stdin:
        start = perf_counter()
        result = rebuilt(text)
        print(perf_counter() - start, flush=True)
        del result


main()
