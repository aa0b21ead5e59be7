"""The print pages of a folder of pages.

print_pages.py TEMPLATE: says "ready", and then answers each line, a folder, with the seconds that
making a print page beside each page of that folder took.
"""

import os
import sys
from time import perf_counter

TITLE = "<pgTitle>"
TITLE_END = "</pgTitle>"


def read(path):
    with open(path, encoding="utf-16", newline="") as file:
        return file.read()


def write(path, text):
    with open(path, "wb") as file:
        file.write(b"\xff\xfe" + text.encode("utf-16-le"))


def print_page(template, page):
    end = page.index(TITLE_END)
    title = page[page.index(TITLE) + len(TITLE) : end]
    body = page[end + len(TITLE_END) :]
    body = body.replace("<pgMain>", '<p align="right">')
    body = body.replace("</pgMain>", "</p>")
    body = body.replace("Data/IMG", "../IMG")
    return template.replace("%Title%", title).replace("%Matn%", body)


def make_pages(template_path, folder):
    template = read(template_path)
    for name in os.listdir(folder):
        if name.lower().endswith(".htm"):
            path = os.path.join(folder, name)
            write(path + "l", print_page(template, read(path)))


def main():
    print("ready", flush=True)
    for line in sys.stdin:
        start = perf_counter()
        make_pages(sys.argv[1], line.rstrip("\n"))
        print(perf_counter() - start, flush=True)


main()
