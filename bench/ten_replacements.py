"""The clean-up of an input text as ten calls of str.replace.

ten_replacements.py INPUT OUTPUT: cleans the text of INPUT (UTF-16, little-endian) into OUTPUT, says
"ready", and then answers each line with the seconds that cleaning it once more took.
"""

import sys
from time import perf_counter

MARK = "\u200f"


def clean(text):
    text = text.replace("&nbsp;", " ")
    text = text.replace("<ircMAIN>", " ")
    text = text.replace("</ircMAIN>", "\r\n")
    text = text.replace(" \r\n", "\r\n")
    text = text.replace("\r\n ", "\r\n")
    text = text.replace("\r\n ", "\r\n")
    text = text.replace("\u0649", "\u064a")
    text = text.replace("!", "!" + MARK)
    text = text.replace(".", "." + MARK)
    return text.replace(":", ":" + MARK)


def main():
    with open(sys.argv[1], "rb") as file:
        text = file.read().decode("utf-16-le")
    with open(sys.argv[2], "wb") as file:
        file.write(clean(text).encode("utf-16-le"))
    print("ready", flush=True)
    for _ in sys.stdin:
        start = perf_counter()
        cleaned = clean(text)
        print(perf_counter() - start, flush=True)
        del cleaned


main()
